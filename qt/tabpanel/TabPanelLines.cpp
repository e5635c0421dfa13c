#include "qt/tabpanel/TabPanelLines.h"

#include "base/Captions.h"
#include "qt/base/Palette.h"
#include "qt/base/Strings.h"
#include "qt/strip/TabLook.h"
#include "qt/tabpanel/TabPanelModel.h"
#include "tabs/frmRenameTab.h"

#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QTreeView>
#include <algorithm>

namespace tessa::qt {

namespace {

constexpr int kIcon = 16, kButton = 18, kLeft = 10, kGap = 7, kRight = 6, kRoom = 12, kMoon = 12, kBar = 3;

/// What a line is painted with.
struct PanelInk {
    PanelInk(const QPalette& palette, const Tab& tab, bool front, bool hovered, bool asleep)
        : base(palette.color(QPalette::Base)), accent(palette.color(QPalette::Highlight)) {
        const QColor words = palette.color(QPalette::Text);
        if (tab.Chosen())
            ground = Palette::Mix(base, accent, front ? 0.45 : 0.32);
        else if (front)
            ground = Palette::Mix(base, accent, 0.18);
        else
            ground = hovered ? Palette::Mix(base, words, 0.07) : base;
        if (tab.Private()) ground = Palette::Mix(ground, QColor(140, 90, 226), 0.18);
        const bool faint = asleep || (tab.News() == TabNews::Nothing && !front);
        text = Palette::Mix(ground, words, faint ? 0.6 : 1.0);
        quiet = Palette::Mix(ground, words, 0.65);
    }
    QColor base, accent, ground, text, quiet;
};

// A tab of a group stands a step further in than the group.
QRect LineOf(const QRect& whole, const Tab& tab) {
    return tab.Group() ? whole.adjusted(TabPanelLines::kStep, 0, 0, 0) : whole;
}

QRect IconPlace(const QRect& line) {
    return {line.left() + kLeft, line.top() + (line.height() - kIcon) / 2, kIcon, kIcon};
}

void PaintLineIcon(QPainter& painter, const PanelInk& ink, const Tab& tab, const QIcon& icon, const QRect& place,
                   bool front) {
    const bool asks = tab.Asks() && !front, busy = tab.Image() == TabImage::Red;
    if (asks)
        TabLook::PaintAskMark(painter, place);
    else if (busy)
        TabLook::PaintBusyMark(painter, place);
    else if (icon.isNull())
        TabLook::PaintBlankPage(painter, place, ink.quiet);
    else
        icon.paint(&painter, place);
    if (tab.News() == TabNews::New && !asks && !busy) TabLook::PaintNewsMark(painter, place, ink.ground);
}

// A crescent: what is left of a disc when another one covers it.
void PaintMoon(QPainter& painter, const QColor& ink, const QRect& place) {
    const QRectF box = QRectF(place);
    QPainterPath disc, cover;
    disc.addEllipse(box.adjusted(1, 1, -1, -1));
    cover.addEllipse(box.adjusted(1, 1, -1, -1).translated(box.width() * 0.32, -box.height() * 0.18));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPath(disc.subtracted(cover));
}

void PaintButtonGround(QPainter& painter, const PanelInk& ink, const QRect& place) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Palette::Mix(ink.ground, ink.text, 0.16));
    painter.drawRoundedRect(place, 3, 3);
}

void PaintLineClose(QPainter& painter, const PanelInk& ink, const QRect& place, bool hovered) {
    if (hovered) PaintButtonGround(painter, ink, place);
    painter.setPen(QPen(hovered ? ink.text : ink.quiet, 1.3, Qt::SolidLine, Qt::RoundCap));
    const QRectF arms = QRectF(place).adjusted(5, 5, -5, -5);
    painter.drawLine(arms.topLeft(), arms.bottomRight());
    painter.drawLine(arms.bottomLeft(), arms.topRight());
}

} // namespace

TabPanelLines::TabPanelLines(TabPanelModel& model, QTreeView* view) : QStyledItemDelegate(view), m_model(model) {}

QRect TabPanelLines::ClosePlace(const QRect& line) {
    return {line.right() + 1 - kRight - kButton, line.top() + (line.height() - kButton) / 2, kButton, kButton};
}

QRect TabPanelLines::SoundPlace(const QRect& line) { return ClosePlace(line).translated(-kButton - 2, 0); }

TabPanelLines::Part TabPanelLines::PartAt(const QModelIndex& index, const QRect& line, QPoint point) const {
    const Tab* tab = m_model.TabAt(index);
    if (!tab) return Part::Line;
    if (ClosePlace(line).contains(point)) return Part::Close;
    return tab->Sound() != TabSound::None && SoundPlace(line).contains(point) ? Part::Sound : Part::Line;
}

namespace {

// How many tabs it has, and while some load, how many of them are there. The tip says it in words.
QString CountOf(const TabGroup& group) {
    const QString all = QString::number(group.Count());
    return group.Loading() == 0 ? all : QString::number(group.Count() - group.Loading()) + u'/' + all;
}

} // namespace

// As the head in the strip: a field of the group's colour, with its name and an arrow that folds it.
void TabPanelLines::PaintGroup(QPainter& painter, const QStyleOptionViewItem& option, const TabGroup& group) const {
    const QColor base = option.palette.color(QPalette::Base), text = option.palette.color(QPalette::Text);
    const QColor colour =
        group.Colour() == TabColour::None ? Palette::Mix(base, text, 0.5) : Palette::MarkColour(group.Colour());
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(option.rect, Palette::Mix(base, colour, hovered ? 0.28 : 0.18));
    painter.fillRect(QRect(option.rect.left(), option.rect.top(), kBar, option.rect.height()), colour);
    const QPointF centre = QRectF(IconPlace(option.rect)).center();
    painter.setPen(QPen(text, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPolygonF down({centre + QPointF(-4, -2), centre + QPointF(0, 2), centre + QPointF(4, -2)});
    const QPolygonF right({centre + QPointF(-2, -4), centre + QPointF(2, 0), centre + QPointF(-2, 4)});
    painter.drawPolyline(m_model.Form().IsFolded(group) ? right : down);
    const QString words = CountOf(group) + (m_model.Form().IsChanged(group) ? QStringLiteral(" \u25CF") : QString());
    QRect room = option.rect.adjusted(kLeft + kIcon + kGap, 0, -kRight - 4, 0);
    const int wordsWidth = std::min(option.fontMetrics.horizontalAdvance(words), room.width() / 2);
    QFont bold = option.font;
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(
        room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
        QFontMetrics(bold).elidedText(ToQt(OneLine(group.Name())), Qt::ElideRight, room.width() - wordsWidth - kGap));
    painter.setFont(option.font);
    painter.setPen(Palette::Mix(text, base, 0.3));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine,
                     option.fontMetrics.elidedText(words, Qt::ElideRight, wordsWidth));
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter.setPen(QPen(option.palette.color(QPalette::Highlight), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5), 2, 2);
    }
    painter.restore();
}

void TabPanelLines::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (const auto* group = m_model.GroupAt(index)) return PaintGroup(*painter, option, *group);
    const Tab* tab = m_model.TabAt(index);
    if (!tab) return;
    const bool front = tab == m_model.Form().Front(), asleep = m_model.Form().IsAsleep(*tab);
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    const PanelInk ink(option.palette, *tab, front, hovered, asleep);
    const QPoint pointer = option.widget ? option.widget->mapFromGlobal(QCursor::pos()) : QPoint(-1, -1);
    const Part under = hovered ? PartAt(index, option.rect, pointer) : Part::Line;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillRect(option.rect, ink.ground);
    QRect bar(option.rect.left(), option.rect.top(), kBar, option.rect.height());
    if (front) painter->fillRect(bar, ink.accent);
    if (tab->Colour() != TabColour::None)
        painter->fillRect(bar.translated(kBar + 1, 0).adjusted(0, 3, 0, -3), Palette::MarkColour(tab->Colour()));
    PaintLineIcon(*painter, ink, *tab, m_model.IconOf(*tab), IconPlace(LineOf(option.rect, *tab)), front);
    int right = hovered ? ClosePlace(option.rect).left() : option.rect.right() + 1 - kRight;
    if (hovered) PaintLineClose(*painter, ink, ClosePlace(option.rect), under == Part::Close);
    if (tab->Sound() != TabSound::None) {
        const QRect place = SoundPlace(option.rect);
        if (under == Part::Sound) PaintButtonGround(*painter, ink, place);
        TabLook::PaintSoundMark(*painter, place, under == Part::Sound ? ink.text : ink.quiet, tab->Sound());
        right = place.left();
    } else if (asleep) {
        const QRect moon(right - kMoon - 4, option.rect.center().y() - kMoon / 2, kMoon, kMoon);
        PaintMoon(*painter, ink.quiet, moon);
        right = moon.left();
    }
    QRect words = option.rect;
    words.setLeft(IconPlace(LineOf(option.rect, *tab)).right() + 1 + kGap);
    words.setRight(right - 4);
    QFont font = option.font;
    font.setBold(front);
    painter->setFont(font);
    painter->setPen(ink.text);
    const QString title =
        QFontMetrics(font).elidedText(index.data().toString().simplified(), Qt::ElideRight, std::max(words.width(), 0));
    painter->drawText(words, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, title);
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QPen(ink.accent, 1));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5), 2, 2);
    }
    painter->restore();
}

QSize TabPanelLines::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {0, std::max(option.fontMetrics.height() + kRoom, kButton + 4)};
}

QWidget* TabPanelLines::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
    auto* editor = new QLineEdit(parent);
    editor->setObjectName(QStringLiteral("txtName"));
    editor->setAccessibleName(QStringLiteral("Name of the tab"));
    editor->setMaxLength(static_cast<int>(frmRenameTab::kLongest));
    editor->setPlaceholderText(QStringLiteral("Title of the page"));
    return editor;
}

void TabPanelLines::setEditorData(QWidget* editor, const QModelIndex& index) const {
    constexpr auto* kFilled = "filled";
    if (editor->property(kFilled).toBool()) return;
    editor->setProperty(kFilled, true);
    QStyledItemDelegate::setEditorData(editor, index);
}

void TabPanelLines::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                         const QModelIndex&) const {
    QRect place = option.rect;
    place.setLeft(IconPlace(option.rect).right() + 1 + kGap / 2);
    editor->setGeometry(place);
}

} // namespace tessa::qt
