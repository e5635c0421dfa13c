#include "qt/history/PassageLines.h"

#include "qt/base/Palette.h"
#include "qt/base/Strings.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>

namespace tessa::qt {

namespace {
constexpr int kEdge = 6, kIndent = 14, kGap = 3;

QRect TextPlace(const QRect& whole, bool isPage) {
    return whole.adjusted(kEdge + (isPage ? 0 : kIndent), isPage ? 2 * kGap : kGap, -kEdge, -kGap);
}
} // namespace

QString PassageLines::TextOf(const Snippet& snippet) {
    QString text;
    for (const SnippetPart& each : snippet) text += ToQt(each.Words);
    return text;
}

QVariantList PassageLines::MarksOf(const Snippet& snippet) {
    QVariantList marks;
    int at = 0;
    for (const SnippetPart& each : snippet) {
        const int units = static_cast<int>(each.Words.size());
        if (each.Marked) marks << at << units;
        at += units;
    }
    return marks;
}

qreal PassageLines::Lay(QTextLayout& layout, const QStyleOptionViewItem& option, const QModelIndex& index, int width) {
    QFont font = option.font;
    font.setBold(index.data(kIsPage).toBool());
    layout.setFont(font);
    layout.setText(index.data(Qt::DisplayRole).toString());
    QList<QTextLayout::FormatRange> formats;
    const QVariantList marks = index.data(kMarks).toList();
    const bool dark = Palette::IsDark(option.palette);
    for (qsizetype i = 0; i + 1 < marks.size(); i += 2) {
        QTextCharFormat format;
        format.setBackground(dark ? QColor(0xD9, 0xA5, 0x20) : QColor(0xFF, 0xD7, 0x5E));
        format.setForeground(QColor(0x1C, 0x27, 0x35));
        formats.append({marks[i].toInt(), marks[i + 1].toInt(), format});
    }
    layout.setFormats(formats);
    qreal height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += line.height();
    }
    layout.endLayout();
    return height;
}

void PassageLines::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem bare = option;
    initStyleOption(&bare, index);
    bare.text.clear();
    const QStyle& style = bare.widget ? *bare.widget->style() : *QApplication::style();
    style.drawControl(QStyle::CE_ItemViewItem, &bare, painter, bare.widget);
    const QRect place = TextPlace(option.rect, index.data(kIsPage).toBool());
    QTextLayout layout;
    Lay(layout, bare, index, place.width());
    const bool selected = bare.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setPen(bare.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    layout.draw(painter, place.topLeft());
    painter->restore();
}

QSize PassageLines::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const int width = view ? view->viewport()->width() : option.rect.width();
    const QRect place = TextPlace({0, 0, width, 1000}, index.data(kIsPage).toBool());
    QTextLayout layout;
    const qreal height = Lay(layout, option, index, place.width());
    return {width, static_cast<int>(height) + 1 + 1000 - place.height()};
}

} // namespace tessa::qt
