#include "qt/tabpanel/TabPanelLines.h"

#include "base/Captions.h"
#include "qt/base/Palette.h"
#include "qt/base/Strings.h"
#include "qt/base/paint/ButtonMarks.h"
#include "qt/strip/TabMarks.h"
#include "qt/tabpanel/TabPanelModel.h"
#include "tabs/frmRenameTab.h"

#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QTreeView>
#include <algorithm>

namespace tessa::qt {

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

namespace {

constexpr int kIcon = 16, kButton = 18, kLeft = 10, kGap = 7, kRight = 6, kRoom = 12, kMoon = 12, kBar = 3;

// A tab of a group stands a step further in than the group.
QRect LineOf(const QRect& whole, const Tab& tab) {
    return tab.Group() ? whole.adjusted(TabPanelLines::kStep, 0, 0, 0) : whole;
}

QRect IconPlace(const QRect& line) {
    return {line.left() + kLeft, line.top() + (line.height() - kIcon) / 2, kIcon, kIcon};
}

TabIconFace LineIconFace(const PanelInk& ink, const Tab& tab, const QIcon& icon, bool front) {
    return {icon, tab.Asks() && !front, tab.Image() == TabImage::Red, tab.News(), ink.quiet, ink.ground};
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

QColor ButtonGround(const PanelInk& ink) { return Palette::Mix(ink.ground, ink.text, 0.16); }

void PaintLineClose(QPainter& painter, const PanelInk& ink, const QRect& place, bool hovered) {
    if (hovered) ButtonMarks::PaintGround(painter, place, ButtonGround(ink));
    ButtonMarks::PaintCross(painter, QRectF(place).adjusted(5, 5, -5, -5), hovered ? ink.text : ink.quiet);
}

// Round what has the keyboard.
void PaintLineFocus(QPainter& painter, const QStyleOptionViewItem& option) {
    if (!option.state.testFlag(QStyle::State_HasFocus)) return;
    painter.setPen(QPen(option.palette.color(QPalette::Highlight), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5), 2, 2);
}

// How many tabs it has, and while some load, how many of them are there. The tip says it in words.
QString CountOf(const TabGroup& group) {
    const QString all = QString::number(group.Count());
    return group.Loading() == 0 ? all : QString::number(group.Count() - group.Loading()) + u'/' + all;
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

// As the head in the strip: a field of the group's colour, with its name and an arrow that folds it.
void TabPanelLines::PaintGroup(QPainter& painter, const QStyleOptionViewItem& option, const TabGroup& group) const {
    const QColor base = option.palette.color(QPalette::Base), text = option.palette.color(QPalette::Text);
    const QColor colour =
        group.Colour() == TabColour::None ? Palette::Mix(base, text, 0.5) : Palette::MarkColour(group.Colour());
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    painter.fillRect(option.rect, Palette::Mix(base, colour, hovered ? 0.28 : 0.18));
    painter.fillRect(QRect(option.rect.left(), option.rect.top(), kBar, option.rect.height()), colour);
    painter.setPen(QPen(text, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    TabMarks::PaintFoldArrow(painter, QRectF(IconPlace(option.rect)).center(), m_model.Form().IsFolded(group), 4);
    PaintGroupWords(painter, option, group);
}

void TabPanelLines::PaintGroupWords(QPainter& painter, const QStyleOptionViewItem& option,
                                    const TabGroup& group) const {
    const QString words = CountOf(group) + (m_model.Form().IsChanged(group) ? QStringLiteral(" \u25CF") : QString());
    const QRect room = option.rect.adjusted(kLeft + kIcon + kGap, 0, -kRight - 4, 0);
    const int wordsWidth = std::min(option.fontMetrics.horizontalAdvance(words), room.width() / 2);
    QFont bold = option.font;
    bold.setBold(true);
    painter.setFont(bold);
    const QString name = ToQt(OneLine(group.Name()));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     QFontMetrics(bold).elidedText(name, Qt::ElideRight, room.width() - wordsWidth - kGap));
    painter.setFont(option.font);
    painter.setPen(Palette::Mix(option.palette.color(QPalette::Text), option.palette.color(QPalette::Base), 0.3));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine,
                     option.fontMetrics.elidedText(words, Qt::ElideRight, wordsWidth));
}

void TabPanelLines::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto* group = m_model.GroupAt(index);
    const Tab* tab = m_model.TabAt(index);
    if (!group && !tab) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (group)
        PaintGroup(*painter, option, *group);
    else
        PaintTab(*painter, option, index, *tab);
    PaintLineFocus(*painter, option);
    painter->restore();
}

void TabPanelLines::PaintTab(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                             const Tab& tab) const {
    const bool front = &tab == m_model.Form().Front();
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    const PanelInk ink(option.palette, tab, front, hovered, m_model.Form().IsAsleep(tab));
    painter.fillRect(option.rect, ink.ground);
    const QRect bar(option.rect.left(), option.rect.top(), kBar, option.rect.height());
    if (front) painter.fillRect(bar, ink.accent);
    if (tab.Colour() != TabColour::None)
        painter.fillRect(bar.translated(kBar + 1, 0).adjusted(0, 3, 0, -3), Palette::MarkColour(tab.Colour()));
    const QRect icon = IconPlace(LineOf(option.rect, tab));
    TabMarks::PaintIcon(painter, LineIconFace(ink, tab, m_model.IconOf(tab), front), icon);
    QRect words = option.rect;
    words.setLeft(icon.right() + 1 + kGap);
    words.setRight(PaintMarks(painter, option, index, tab, ink) - 4);
    QFont font = option.font;
    font.setBold(front);
    painter.setFont(font);
    painter.setPen(ink.text);
    const QString title =
        QFontMetrics(font).elidedText(index.data().toString().simplified(), Qt::ElideRight, std::max(words.width(), 0));
    painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, title);
}

int TabPanelLines::PaintMarks(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                              const Tab& tab, const PanelInk& ink) const {
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    const QPoint pointer = option.widget ? option.widget->mapFromGlobal(QCursor::pos()) : QPoint(-1, -1);
    const Part under = hovered ? PartAt(index, option.rect, pointer) : Part::Line;
    const int right = hovered ? ClosePlace(option.rect).left() : option.rect.right() + 1 - kRight;
    if (hovered) PaintLineClose(painter, ink, ClosePlace(option.rect), under == Part::Close);
    if (tab.Sound() != TabSound::None) {
        const QRect place = SoundPlace(option.rect);
        if (under == Part::Sound) ButtonMarks::PaintGround(painter, place, ButtonGround(ink));
        TabMarks::PaintSoundMark(painter, place, under == Part::Sound ? ink.text : ink.quiet, tab.Sound());
        return place.left();
    }
    if (!m_model.Form().IsAsleep(tab)) return right;
    const QRect moon(right - kMoon - 4, option.rect.center().y() - kMoon / 2, kMoon, kMoon);
    PaintMoon(painter, ink.quiet, moon);
    return moon.left();
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
