#include "qt/tiles/TileHeader.h"

#include "qt/base/Palette.h"
#include "qt/base/Tip.h"
#include "qt/base/paint/ButtonMarks.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace tessa::qt {

namespace {

constexpr int kIcon = 16, kGap = 6, kLeastHeight = 24, kAccent = 2;

/// The cross that closes a tab, as the strip paints it.
class CloseCross final : public QAbstractButton {
public:
    explicit CloseCross(QWidget* parent) : QAbstractButton(parent) { setAttribute(Qt::WA_Hover); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor ground = palette().color(QPalette::Base), words = palette().color(QPalette::Text);
        if (underMouse()) ButtonMarks::PaintGround(painter, rect(), Palette::Mix(ground, words, isDown() ? 0.3 : 0.18));
        const QRectF arms = QRectF(rect()).adjusted(4.5, 4.5, -4.5, -4.5);
        ButtonMarks::PaintCross(painter, arms, underMouse() ? words : Palette::Mix(ground, words, 0.65));
    }
};

} // namespace

TileHeader::TileHeader(QWidget* parent) : QAbstractButton(parent), m_close(new CloseCross(this)) {
    setObjectName(QStringLiteral("tileHeader"));
    setFocusPolicy(Qt::NoFocus);
    m_close->setObjectName(QStringLiteral("cmdCloseTile"));
    m_close->setFocusPolicy(Qt::NoFocus);
    m_close->setToolTip(QStringLiteral("Close this tab"));
    connect(m_close, &QAbstractButton::clicked, this, [this] { CloseRequested(); });
    // By an assistive tool; the mouse has selected it when it went down.
    connect(this, &QAbstractButton::clicked, this, [this] { Selected(); });
}

int TileHeader::HeightIn(const QWidget& widget) {
    return std::max(widget.fontMetrics().height() + 2 * kAccent + kGap, kLeastHeight);
}

QSize TileHeader::sizeHint() const { return {10 * kLeastHeight, HeightIn(*this)}; }

void TileHeader::ShowFace(const QIcon& icon, const QString& title, bool focused) {
    m_icon = icon;
    m_focused = focused;
    if (text() != title) {
        setText(title);
        setAccessibleName(title);
        setToolTip(Tip::Html(title));
        m_close->setAccessibleName(QStringLiteral("Close %1").arg(title));
    }
    update();
}

void TileHeader::resizeEvent(QResizeEvent*) {
    const int gap = (height() - kIcon) / 2;
    m_close->setGeometry(width() - kIcon - gap, gap, kIcon, kIcon);
    // A title is worth more than what closes it.
    m_close->setVisible(width() > 4 * height());
}

void TileHeader::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPalette& colours = palette();
    const QColor window = colours.color(QPalette::Window), words = colours.color(QPalette::WindowText);
    // As the strip does it: the selected one is lighter, whatever the desktop's colours are.
    const QColor focused = Palette::IsDark(colours) ? Palette::Mix(window, words, 0.12) : colours.color(QPalette::Base);
    painter.fillRect(rect(), m_focused ? focused : window);
    if (m_focused) painter.fillRect(0, 0, width(), kAccent, colours.color(QPalette::Highlight));
    QRect room = rect().adjusted(kGap, 0, m_close->isHidden() ? -kGap : -height(), 0);
    if (!m_icon.isNull() && room.width() > 2 * kIcon) {
        m_icon.paint(&painter, QRect(room.left(), (height() - kIcon) / 2, kIcon, kIcon));
        room.setLeft(room.left() + kIcon + kGap);
    }
    painter.setPen(m_focused ? words : Palette::Mix(window, words, 0.75));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

void TileHeader::mousePressEvent(QMouseEvent* event) {
    m_pressed = event->position().toPoint();
    m_dragging = false;
    if (event->button() == Qt::RightButton) return MenuRequested();
    if (event->button() == Qt::MiddleButton) return CloseRequested();
    if (event->button() == Qt::LeftButton) Selected();
}

void TileHeader::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) return;
    const QPoint point = event->position().toPoint();
    if (!m_dragging && (point - m_pressed).manhattanLength() < QApplication::startDragDistance()) return;
    m_dragging = true;
    Dragged(event->globalPosition().toPoint());
}

void TileHeader::mouseReleaseEvent(QMouseEvent* event) {
    if (std::exchange(m_dragging, false)) Dropped(event->globalPosition().toPoint());
}

void TileHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) DoubleClicked();
}

} // namespace tessa::qt
