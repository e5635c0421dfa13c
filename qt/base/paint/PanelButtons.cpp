#include "qt/base/paint/PanelButtons.h"

#include "qt/base/Palette.h"
#include "qt/base/paint/ButtonMarks.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QEvent>
#include <QLatin1String>
#include <QPainter>
#include <algorithm>

namespace tessa::qt {

namespace {

// As Qt calls them.
constexpr QLatin1String kCloseButton("qt_dockwidget_closebutton"), kFloatButton("qt_dockwidget_floatbutton");
constexpr double kLargestMark = 8;

} // namespace

PanelButtons::PanelButtons(QDockWidget& panel) : QObject(&panel) {
    for (const QString name : {kCloseButton, kFloatButton}) {
        if (auto* button = panel.findChild<QAbstractButton*>(name)) button->installEventFilter(this);
    }
}

bool PanelButtons::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Paint) return QObject::eventFilter(watched, event);
    Paint(*static_cast<QAbstractButton*>(watched));
    return true;
}

void PanelButtons::Paint(QAbstractButton& button) {
    QPainter painter(&button);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = button.palette().color(QPalette::Window),
                 words = button.palette().color(QPalette::WindowText);
    const QRect box = button.rect();
    if (button.underMouse())
        ButtonMarks::PaintGround(painter, box, Palette::Mix(ground, words, button.isDown() ? 0.3 : 0.18));
    const QColor ink = button.underMouse() ? words : Palette::Mix(ground, words, 0.8);
    const double size = std::min<double>(std::min(box.width(), box.height()) - 4, kLargestMark);
    QRectF place(0, 0, size, size);
    place.moveCenter(QRectF(box).center());
    if (button.objectName() == kFloatButton)
        ButtonMarks::PaintWindows(painter, place, ink);
    else
        ButtonMarks::PaintCross(painter, place, ink, 1.5);
}

} // namespace tessa::qt
