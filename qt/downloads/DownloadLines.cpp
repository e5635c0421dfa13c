#include "qt/downloads/DownloadLines.h"

#include "downloads/DownloadWords.h"
#include "qt/base/ItemRows.h"
#include "qt/base/Strings.h"

#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QStyleOptionProgressBar>

namespace tessa::qt {

namespace {

constexpr int kLineMargin = 6;
constexpr int kLeastWidth = 120;
constexpr int kLineGap = 3;
constexpr int kBarHeight = 12;

// How much room there is for words on a line of the list.
int RoomIn(const QStyleOptionViewItem& option) {
    const auto* list = qobject_cast<const QAbstractItemView*>(option.widget);
    return list ? list->viewport()->width() - 2 * kLineMargin : kLeastWidth;
}

// On as many lines as needed: "About 8 seconds left," and "1 MB of 9 MB".
QStringList WrapParts(const QString& text, const QFontMetrics& metrics, int room) {
    static const QRegularExpression ends(QStringLiteral("(?<=[,.]) "));
    QStringList lines;
    for (const QString& part : text.split(ends)) {
        // Where a part alone is too long, its words are.
        const bool fits = metrics.horizontalAdvance(part) <= room;
        for (const QString& piece : fits ? QStringList(part) : part.split(u' ')) {
            const QString longer = lines.isEmpty() ? piece : lines.constLast() + u' ' + piece;
            if (!lines.isEmpty() && metrics.horizontalAdvance(longer) <= room)
                lines.last() = longer;
            else
                lines << piece;
        }
    }
    return lines;
}

// When, and in which folder: it is the folder that may be long.
QStringList WrapPlace(const QString& place, const QFontMetrics& metrics, int room) {
    const auto time = place.indexOf(ToQt(DownloadWords::kInFolder));
    if (time < 0 || metrics.horizontalAdvance(place) <= room) return {place};
    // The comma stays with the time.
    return WrapParts(place.left(time + 1), metrics, room) << place.mid(time + 2);
}

void DrawBar(QPainter& painter, const QStyleOptionViewItem& option, const QRect& place, int percent) {
    QStyleOptionProgressBar bar;
    bar.rect = place;
    bar.state = QStyle::State_Enabled | QStyle::State_Horizontal;
    bar.palette = option.palette;
    bar.minimum = 0;
    bar.maximum = 100;
    // Of a size that nobody knows the bar is empty: a moving one would paint the window all the time.
    bar.progress = percent > 100 ? 0 : percent;
    bar.textVisible = false;
    option.widget->style()->drawControl(QStyle::CE_ProgressBar, &bar, &painter, option.widget);
}

// Writes one line of text after the other, from the top of the rest of an item's place.
void WriteLine(QPainter& painter, const QStyleOptionViewItem& item, const QFont& font, const QString& text,
               QRect& rest) {
    const QFontMetrics metrics(font);
    const QRect line(rest.left(), rest.top(), rest.width(), metrics.height());
    const auto role = item.state.testFlag(QStyle::State_Selected) ? QPalette::HighlightedText : QPalette::Text;
    painter.setFont(font);
    item.widget->style()->drawItemText(&painter, line, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), item.palette,
                                       true, metrics.elidedText(text, Qt::ElideMiddle, line.width()), role);
    rest.setTop(line.bottom() + 1 + kLineGap);
}

void FillItem(QListWidgetItem& item, const DownloadLine& line) {
    item.setData(DownloadDelegate::kPercentRole, line.Percent);
    item.setData(DownloadDelegate::kNameRole, ToQt(line.Name));
    item.setData(DownloadDelegate::kStandingRole, ToQt(line.Standing));
    item.setData(DownloadDelegate::kPlaceRole, ToQt(line.Place));
    const Text place = line.Place.empty() ? Text() : u", " + line.Place;
    item.setData(Qt::AccessibleTextRole, ToQt(line.Name + u", " + line.Standing + place));
    item.setToolTip(ToQt(place.empty() ? Text() : line.Place));
}

} // namespace

void DownloadDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);
    item.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, item.widget);
    QRect rest = item.rect.adjusted(kLineMargin, kLineMargin, -kLineMargin, -kLineMargin);
    painter->save();
    QFont bold = item.font;
    bold.setBold(true);
    WriteLine(*painter, item, bold, index.data(kNameRole).toString(), rest);
    const int percent = index.data(kPercentRole).toInt();
    if (percent >= 0) {
        DrawBar(*painter, item, {rest.left(), rest.top(), rest.width(), kBarHeight}, percent);
        rest.setTop(rest.top() + kBarHeight + kLineGap);
    }
    for (const QString& line : WordsOf(index, QFontMetrics(item.font), rest.width()))
        WriteLine(*painter, item, item.font, line, rest);
    painter->restore();
}

QSize DownloadDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QFont bold = option.font;
    bold.setBold(true);
    const int bar = index.data(kPercentRole).toInt() >= 0 ? kBarHeight + kLineGap : 0;
    const QFontMetrics metrics(option.font);
    const auto lines = static_cast<int>(WordsOf(index, metrics, RoomIn(option)).size());
    const int text = QFontMetrics(bold).height() + lines * (kLineGap + metrics.height());
    return {kLeastWidth, 2 * kLineMargin + text + bar};
}

QStringList DownloadDelegate::WordsOf(const QModelIndex& index, const QFontMetrics& metrics, int room) {
    QStringList lines = WrapParts(index.data(kStandingRole).toString(), metrics, room);
    if (const QString place = index.data(kPlaceRole).toString(); !place.isEmpty())
        lines << WrapPlace(place, metrics, room);
    return lines;
}

DownloadLines::DownloadLines(frmDownloads& form, QWidget* parent) : QListWidget(parent), m_form(form) {
    setObjectName(QStringLiteral("lstDownloads"));
    setAccessibleName(QStringLiteral("Downloads"));
    setItemDelegate(new DownloadDelegate(this));
    setVerticalScrollMode(ScrollPerPixel);
    setResizeMode(Adjust);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    BindRows(m_form.lstDownloads, *this, m_connections, FillItem);
    // A line has as many words as its download tells.
    m_connections += m_form.lstDownloads.Attach([this](RowChange) { scheduleDelayedItemsLayout(); });
    connect(this, &QListWidget::itemDoubleClicked, this, [this] { m_form.lstDownloads_DblClick(); });
}

void DownloadLines::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return m_form.lstDownloads_DblClick();
    case Qt::Key_Space:
        return m_form.cmdPause.Enabled() ? m_form.cmdPause.Click() : QListWidget::keyPressEvent(event);
    case Qt::Key_Delete:
        return m_form.lstDownloads_Delete();
    default:
        return QListWidget::keyPressEvent(event);
    }
}

} // namespace tessa::qt
