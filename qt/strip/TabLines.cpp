#include "qt/strip/TabLines.h"

#include "qt/base/Palette.h"
#include "qt/base/paint/ButtonMarks.h"
#include "qt/strip/TabMarks.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace tessa::qt {

namespace {
constexpr int kCross = 16, kCrossMargin = 6, kHostGap = 12, kLinePadding = 8, kIconMargin = 4, kIconSize = 16;

/// A line's colours.
struct LineInk {
    explicit LineInk(const QStyleOptionViewItem& line)
        : marked(line.state.testFlag(QStyle::State_Selected)),
          text(line.palette.color(marked ? QPalette::HighlightedText : QPalette::Text)),
          ground(line.palette.color(marked ? QPalette::Highlight : QPalette::Base)) {}
    const bool marked;
    const QColor text, ground;
};

void PaintLineIcon(QPainter& painter, const LineInk& ink, const QIcon& icon, const QRect& place) {
    // As on the strip; the desktop's picture for it can hardly be seen on a dark ground.
    if (icon.isNull())
        TabMarks::PaintBlankPage(painter, place, ink.marked ? ink.text : Palette::Mix(ink.ground, ink.text, 0.55));
    else
        icon.paint(&painter, place, Qt::AlignCenter, ink.marked ? QIcon::Selected : QIcon::Normal);
}

void PaintLineWords(QPainter& painter, const LineInk& ink, const QFontMetrics& metrics, const QRect& room,
                    const QString& title, const QString& host) {
    // The title is what one looks for: the host has no more than half of the line.
    const QString shownHost = metrics.elidedText(host, Qt::ElideLeft, room.width() / 2);
    const int hostWidth = shownHost.isEmpty() ? 0 : metrics.horizontalAdvance(shownHost) + kHostGap;
    const QRect titleRoom(room.left(), room.top(), std::max(room.width() - hostWidth, 0), room.height());
    painter.setPen(ink.text);
    painter.drawText(titleRoom, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     metrics.elidedText(title, Qt::ElideRight, titleRoom.width()));
    painter.setPen(Palette::Mix(ink.text, ink.ground, 0.35));
    painter.drawText(titleRoom.adjusted(0, 0, hostWidth, 0), Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine,
                     shownHost);
}

void PaintLineCross(QPainter& painter, const QColor& color, const QRect& place) {
    painter.setRenderHint(QPainter::Antialiasing);
    ButtonMarks::PaintCross(painter, QRectF(place).adjusted(4, 4, -4, -4), color, 1.5);
}

} // namespace

TabLines::TabLines(QAbstractItemView* list) : QStyledItemDelegate(list) {}

QRect TabLines::ClosePlace(const QRect& line) {
    return {line.right() - kCrossMargin - kCross + 1, line.top() + (line.height() - kCross) / 2, kCross, kCross};
}

QSize TabLines::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize usual = QStyledItemDelegate::sizeHint(option, index);
    return {usual.width(), std::max(usual.height(), option.fontMetrics.height() + kLinePadding)};
}

void TabLines::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem line(option);
    initStyleOption(&line, index);
    const QString title = std::exchange(line.text, QString()), host = index.data(kHostRole).toString();
    const QIcon icon = std::exchange(line.icon, QIcon());
    line.features &= ~QStyleOptionViewItem::HasDecoration;
    const QStyle* style = line.widget ? line.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &line, painter, line.widget);

    const LineInk ink(line);
    const QRect cross = ClosePlace(line.rect);
    const QRect iconPlace(line.rect.left() + kIconMargin, line.rect.center().y() - kIconSize / 2, kIconSize, kIconSize);
    painter->save();
    PaintLineIcon(*painter, ink, icon, iconPlace);
    const int left = iconPlace.right() + kHostGap;
    const QRect room(left, line.rect.top(), cross.left() - kCrossMargin - left, line.rect.height());
    PaintLineWords(*painter, ink, line.fontMetrics, room, title, host);
    if (ink.marked || line.state.testFlag(QStyle::State_MouseOver)) PaintLineCross(*painter, ink.text, cross);
    painter->restore();
}

bool TabLines::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                           const QModelIndex& index) {
    const bool press = event->type() == QEvent::MouseButtonPress;
    if (!press && event->type() != QEvent::MouseButtonRelease)
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const bool left = mouse->button() == Qt::LeftButton;
    const bool onButton = left && ClosePlace(option.rect).contains(mouse->position().toPoint());
    if (press) {
        m_closed = false;
        m_pressed = onButton ? QPersistentModelIndex(index) : QPersistentModelIndex();
        return onButton;
    }
    const bool pressed = m_pressed.isValid() && m_pressed == index;
    m_pressed = QPersistentModelIndex();
    // A button that was pressed and left again chooses no tab either.
    m_closed = pressed;
    if (pressed && onButton) {
        // Later: the list is in the middle of the click.
        QMetaObject::invokeMethod(
            this,
            [this, closing = QPersistentModelIndex(index)] {
                if (closing.isValid()) CloseAt(closing);
            },
            Qt::QueuedConnection);
    }
    return pressed;
}

} // namespace tessa::qt
