#include "qt/base/ScreenFit.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

namespace tessa::qt {

namespace {

constexpr int kGuessedEdge = 4;
constexpr int kGuessedTitle = 28;

int PixelsIn(const QRect& rect) { return rect.isEmpty() ? 0 : rect.width() * rect.height(); }

/// The buttons at the lower end of a dialog, which have to stay in sight.
QDialogButtonBox* TakeButtons(QLayout& layout) {
    for (int i = 0; i < layout.count(); ++i) {
        auto* buttons = qobject_cast<QDialogButtonBox*>(layout.itemAt(i)->widget());
        if (!buttons) continue;
        layout.removeWidget(buttons);
        return buttons;
    }
    return nullptr;
}

} // namespace

ScreenFit::ScreenFit() { qApp->installEventFilter(this); }

QRect ScreenFit::Within(QRect frame, const QRect& free) {
    frame.setSize(frame.size().boundedTo(free.size()));
    const int left = std::clamp(frame.left(), free.left(), free.left() + free.width() - frame.width());
    const int top = std::clamp(frame.top(), free.top(), free.top() + free.height() - frame.height());
    frame.moveTo(left, top);
    return frame;
}

QRect ScreenFit::FreeAround(const QRect& frame) {
    const QScreen* best = QGuiApplication::primaryScreen();
    int most = 0;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const int area = PixelsIn(screen->geometry() & frame);
        if (area <= most) continue;
        most = area;
        best = screen;
    }
    return best ? best->availableGeometry() : frame;
}

QMargins ScreenFit::FrameOf(const QWidget& window) {
    if (!window.isVisible()) return {kGuessedEdge, kGuessedTitle, kGuessedEdge, kGuessedEdge};
    const QRect inner = window.geometry(), outer = window.frameGeometry();
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

void ScreenFit::Fit(QWidget& window) {
    constexpr Qt::WindowStates kNotOurs = Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen;
    if (!window.isVisible() || (window.windowState() & kNotOurs)) return;
    const QRect frame = window.frameGeometry(), fitting = Within(frame, FreeAround(frame));
    if (fitting == frame) return;
    const QMargins around = FrameOf(window);
    window.resize(fitting.size().shrunkBy(around));
    window.move(fitting.topLeft());
}

// A dialog of a fixed size gets smaller where it has to.
void ScreenFit::Loosen(QDialog& dialog, const QSize& room) {
    const QSize wanted = dialog.layout()->totalSizeHint();
    if (wanted.width() <= room.width() && wanted.height() <= room.height()) return;
    dialog.layout()->setSizeConstraint(QLayout::SetDefaultConstraint);
    dialog.setMinimumSize(0, 0);
    dialog.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    dialog.resize(wanted);
}

// The dialog finds its own place next, inside the screen as long as it is no larger than that.
void ScreenFit::Prepare(QDialog& dialog) {
    const QWidget* owner = dialog.parentWidget();
    const QRect free = FreeAround(owner ? owner->window()->frameGeometry() : dialog.frameGeometry());
    const QSize room = free.size().shrunkBy(FrameOf(*(owner ? owner->window() : &dialog)));
    QLayout* layout = dialog.layout();
    const bool ownSize = qobject_cast<QMessageBox*>(&dialog);
    const QSize least = layout && !ownSize ? layout->totalMinimumSize() : QSize();
    if (least.width() > room.width() || least.height() > room.height())
        Scroll(dialog);
    else if (layout && !ownSize && layout->sizeConstraint() == QLayout::SetFixedSize)
        Loosen(dialog, room);
    dialog.resize(dialog.size().boundedTo(room));
}

namespace {

QScrollArea* NewArea(QDialog& dialog, QLayout* inner) {
    auto* content = new QWidget;
    content->setLayout(inner);
    auto* area = new QScrollArea(&dialog);
    area->setObjectName(QStringLiteral("screenFit"));
    area->setFrameStyle(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    // Its fields are what the keyboard is for, not the area.
    area->setFocusPolicy(Qt::NoFocus);
    area->setMinimumWidth(0);
    return area;
}

} // namespace

void ScreenFit::Scroll(QDialog& dialog) {
    QLayout* inner = dialog.layout();
    QDialogButtonBox* buttons = TakeButtons(*inner);
    const QMargins margins = inner->contentsMargins();
    QScrollArea* area = NewArea(dialog, inner);
    auto* column = new QVBoxLayout(&dialog);
    column->setContentsMargins(0, 0, 0, buttons ? margins.bottom() : 0);
    column->addWidget(area);
    if (buttons) {
        auto* row = new QHBoxLayout;
        row->setContentsMargins(margins.left(), 0, margins.right(), 0);
        row->addWidget(buttons);
        column->addLayout(row);
    }
    // Those that the layout before has set.
    dialog.setMinimumSize(0, 0);
    dialog.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    area->show();
}

bool ScreenFit::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show || !watched->isWidgetType()) return false;
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (!dialog || !dialog->isWindow() || event->spontaneous()) return false;
    Prepare(*dialog);
    // What the desktop has put around it is known once it is on the screen.
    QTimer::singleShot(0, dialog, [dialog] { Fit(*dialog); });
    return false;
}

} // namespace tessa::qt
