#include "qt/strip/TabStripView.h"

#include "base/Captions.h"
#include "qt/base/Strings.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace tessa::qt {

namespace {
constexpr std::int32_t kLowestRow = 22;
constexpr int kRowPadding = 8;
} // namespace

TabStripView::TabStripView(TabStrip& strip, const TabFaces& faces, QWidget* parent)
    : QWidget(parent), m_strip(strip), m_source(faces), m_drag(strip), m_heads(strip, faces, m_drag) {
    setObjectName(QStringLiteral("pcPage"));
    setAccessibleName(QStringLiteral("Tabs"));
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    setAcceptDrops(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_clock.LayoutDue.ConnectForLife([this] { Relayout(); });
    m_clock.FacesDue.ConnectForLife([this] { RefreshFaces(); });
    Measure();
    m_connections += m_strip.Attach([this](TabStripChange change) { m_clock.Note(change); });
}

void TabStripView::RefreshIcons(std::int32_t tag) {
    m_changedIcons.insert(tag);
    m_clock.Note(TabStripChange::Faces);
}

void TabStripView::Settle() {
    if (m_clock.IsLayoutDue()) Relayout();
}

void TabStripView::Relayout() {
    m_clock.Stop();
    m_changedIcons.clear();
    m_strip.Clean();
    m_heads.Note();
    m_row.Lay(size(), m_heads.Items(fontMetrics()), fontMetrics().height());
    const Tab* selected = m_strip.SelectedItem();
    m_selected = m_strip.PositionOf(selected);
    if (selected && selected->Key() != m_revealed) {
        m_revealed = selected->Key();
        m_row.Reveal(m_selected);
    }
    m_hover = SpotUnderPointer();
    RememberFaces();
    update();
    Changed();
    Rearranged();
}

void TabStripView::RefreshFaces() {
    if (m_clock.IsLayoutDue()) return Relayout();
    // A head is as long as what it says.
    if (m_heads.Items(fontMetrics()) != m_row.Items()) return Relayout();
    m_strip.Clean();
    const std::size_t first = m_row.FirstVisible();
    for (std::size_t index = 0; index < m_faces.size(); ++index) {
        const TabRowItem& item = m_row.Items()[first + index];
        const Tab* tab = m_strip.FindAt(item.Position);
        Face face = FaceOf(item);
        if (face == m_faces[index] && !(tab && m_changedIcons.contains(tab->Tag))) continue;
        m_faces[index] = std::move(face);
        update(m_row.ItemPlace(first + index) & m_row.Area());
    }
    m_changedIcons.clear();
    Changed();
}

void TabStripView::Scroll(int offset) {
    const int before = m_row.Offset();
    m_row.ScrollTo(offset);
    if (m_row.Offset() == before) return;
    m_hover = SpotUnderPointer();
    RememberFaces();
    update();
}

void TabStripView::Measure() {
    const Pixels height{std::max<std::int32_t>(kLowestRow, fontMetrics().height() + kRowPadding)};
    const bool changed = height != m_rowHeight;
    m_rowHeight = m_strip.RowHeight = height;
    updateGeometry();
    if (changed) RowHeightChanged();
}

TabStripView::Face TabStripView::FaceOf(const TabRowItem& item) const {
    const Tab* tab = m_strip.FindAt(item.Position);
    if (!tab) return {};
    if (item.What == TabRowItem::Kind::Head) {
        const TabHeadFace head = m_heads.FaceAt(item.Position);
        return {.key = Text(u"head"),
                .caption = FromQt(head.name),
                .colour = head.colour,
                .loading = head.loading,
                .changed = head.changed};
    }
    return {.key = tab->Key(),
            .caption = tab->Shown(),
            .image = tab->Image(),
            .asks = tab->Asks(),
            .sound = tab->Sound(),
            .news = tab->News(),
            .colour = m_heads.ColourOf(*tab),
            .pane = m_source.PaneOf(*tab),
            .chosen = tab->Chosen()};
}

void TabStripView::RememberFaces() {
    m_faces.clear();
    for (std::size_t item = m_row.FirstVisible(); item < m_row.EndVisible(); ++item)
        m_faces.push_back(FaceOf(m_row.Items()[item]));
}

TabFace TabStripView::PaintedFace(const TabRowItem& item) const {
    const Tab& tab = *m_strip.FindAt(item.Position);
    TabFace face;
    face.pinned = item.What == TabRowItem::Kind::Pin;
    face.pane = m_source.PaneOf(tab);
    // What turns the writing around in a title would do so in the dots behind it as well.
    face.caption = ToQt(OneLine(tab.Shown()));
    face.isPrivate = tab.Private();
    face.asks = tab.Asks() && item.Position != m_selected;
    face.busy = tab.Image() == TabImage::Red;
    if (!face.busy) face.icon = m_source.IconOf(tab);
    face.sound = tab.Sound();
    face.news = tab.News();
    face.colour = m_heads.ColourOf(tab);
    face.chosen = tab.Chosen();
    PlaceFace(face, item.Position);
    return face;
}

// Where it stands, and what follows from where the pointer and the selection are.
void TabStripView::PlaceFace(TabFace& face, std::size_t position) const {
    const bool pointed = position == m_hover.position;
    face.selected = position == m_selected;
    face.hovered = pointed && m_hover.part != Part::Head;
    face.focused = face.selected && hasFocus();
    face.closeShown = (face.selected || face.hovered) && !face.pinned;
    face.closeHovered = face.hovered && m_hover.part == Part::Close;
    face.soundHovered = pointed && m_hover.part == Part::Sound;
    face.place = m_row.TabPlace(position);
    // The tab in front and a head are set off by themselves.
    const TabRowItem* behind = m_row.ItemAt({face.place.right() + 1, face.place.center().y()});
    face.dividerShown = position + 1 != m_selected && !(behind && behind->What == TabRowItem::Kind::Head);
    face.closePlace = m_row.ClosePlace(position);
    face.soundPlace = m_row.SoundPlace(position);
}

// What the screen shows may be newer than what was remembered. It must be known to be painted over later.
void TabStripView::RememberPainted(std::size_t item, const QRegion& painted) {
    const std::size_t index = item - m_row.FirstVisible();
    Face face = FaceOf(m_row.Items()[item]);
    if (index >= m_faces.size() || face == m_faces[index]) return;
    const bool whole = QRegion(m_row.ItemPlace(item) & m_row.Area()).subtracted(painted).isEmpty();
    m_faces[index] = whole ? std::move(face) : Face{};
}

void TabStripView::PaintItem(QPainter& painter, const TabLook& look, const TabRowItem& item) const {
    if (item.What != TabRowItem::Kind::Head) return look.PaintTab(painter, PaintedFace(item));
    TabHeadFace head = m_heads.FaceAt(item.Position);
    head.hovered = m_hover.part == Part::Head && m_hover.position == item.Position;
    head.place = m_row.ItemPlace(static_cast<std::size_t>(&item - m_row.Items().data()));
    TabHeadLook(palette()).Paint(painter, head);
}

void TabStripView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const TabLook look(palette(), m_strip.Placement());
    look.PaintBackground(painter, rect());
    painter.save();
    painter.setClipRect(m_row.Area());
    for (std::size_t item = m_row.FirstVisible(); item < m_row.EndVisible(); ++item) {
        const TabRowItem& each = m_row.Items()[item];
        if (!m_strip.FindAt(each.Position) || !event->region().intersects(m_row.ItemPlace(item))) continue;
        PaintItem(painter, look, each);
        RememberPainted(item, event->region());
    }
    painter.restore();
    look.PaintNewButton(painter, m_row.NewPlace(), m_hover.part == Part::New);
    if (!m_row.Overflows()) return;
    look.PaintArrow(painter, m_row.ArrowPlace(TabRow::Arrow::Back), Qt::RightToLeft,
                    m_row.CanScroll(TabRow::Arrow::Back), m_hover.part == Part::Back);
    look.PaintArrow(painter, m_row.ArrowPlace(TabRow::Arrow::Forward), Qt::LeftToRight,
                    m_row.CanScroll(TabRow::Arrow::Forward), m_hover.part == Part::Forward);
    look.PaintListButton(painter, m_row.ListPlace(), m_hover.part == Part::List);
}

void TabStripView::resizeEvent(QResizeEvent*) {
    m_revealed.clear();
    Relayout();
}

void TabStripView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        Measure();
        m_clock.Note(TabStripChange::Layout);
    }
    QWidget::changeEvent(event);
}

Tab* TabStripView::FindTabAt(QPoint point) {
    Settle();
    return m_strip.FindAt(m_row.PositionAt(point));
}

QRect TabStripView::TabPlace(std::size_t position) {
    Settle();
    return m_row.TabPlace(position);
}

QRect TabStripView::ClosePlace(std::size_t position) {
    Settle();
    return m_row.ClosePlace(position);
}

QRect TabStripView::SoundPlace(std::size_t position) {
    Settle();
    return m_row.SoundPlace(position);
}

QRect TabStripView::HeadPlace(const TabGroup* group) {
    Settle();
    for (std::size_t item = 0; item < m_row.Items().size(); ++item) {
        const TabRowItem& each = m_row.Items()[item];
        const bool named = each.What == TabRowItem::Kind::Head && m_heads.BeginsGroup(each.Position);
        if (named && group && m_heads.GroupAt(each.Position) == group) return m_row.ItemPlace(item);
    }
    return {};
}

QRect TabStripView::ListPlace() {
    Settle();
    return m_row.ListPlace();
}

QRect TabStripView::NewPlace() {
    Settle();
    return m_row.NewPlace();
}

void TabStripView::Click(Tab& tab) { m_strip.UserClick(&tab); }

void TabStripView::ToggleFolded(TabGroup& group) { m_strip.SetFolded(&group, !group.Folded()); }

QSize TabStripView::sizeHint() const { return {m_row.Length(), m_rowHeight.value}; }

QSize TabStripView::minimumSizeHint() const { return {0, m_rowHeight.value}; }

} // namespace tessa::qt
