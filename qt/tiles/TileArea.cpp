#include "qt/tiles/TileArea.h"

#include "qt/tiles/TileRects.h"
#include "tabs/TabKeys.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <set>
#include <utility>

namespace tessa::qt {

namespace {

constexpr int kDivider = 5, kFrame = 2;
/// A pane does not become smaller than that by dragging.
constexpr int kLeastPane = 60;
/// How far a key moves a divider; with Shift it is a pixel.
constexpr int kStep = 20;

} // namespace

TileArea::TileArea(QWidget* pageArea) : QWidget(pageArea), m_dropZone(pageArea) {
    setObjectName(QStringLiteral("tileArea"));
    setAccessibleName(QStringLiteral("Dividers"));
    setAccessibleDescription(QStringLiteral("Arrow keys move them, Home makes the panes equal, Escape goes back"));
    setMouseTracking(true);
    m_clock.FacesDue.ConnectForLife([this] { ShowFaces(); });
    hide();
}

TileArea::~TileArea() = default;

void TileArea::Attach(Tiles& tiles, TabStrip& strip, const TileFaces& faces) {
    m_tiles = &tiles;
    m_strip = &strip;
    m_shownFaces = &faces;
    m_focus.Attach(tiles, strip);
    m_connections += tiles.Changed.Connect([this] { OnTilesChanged(); });
    m_connections += strip.Touched.Connect([this] {
        if (!isHidden()) RefreshFaces();
    });
    OnTilesChanged();
}

void TileArea::OnTilesChanged() {
    m_stale = true;
    const bool shows = m_tiles->Shown() != nullptr;
    if (shows == isHidden()) {
        m_focus.Follow(shows);
        setVisible(shows);
        lower();
    }
    if (shows && !m_area.isEmpty()) Lay();
    Changed();
}

TileMeasures TileArea::Measures() const {
    return {.Divider = kDivider, .Header = m_tiles->HasHeaders() ? TileHeader::HeightIn(*this) : 0, .Frame = kFrame};
}

QRect TileArea::PageRect(const QRect& area, std::int32_t index) {
    if (std::exchange(m_area, area) != area) m_stale = true;
    if (!m_tiles || isHidden()) return area;
    if (m_stale) Lay();
    const auto* pane = m_places.Find(index);
    if (!pane) return area;
    // The engine paints nothing that is empty.
    const QRect page = ToQRect(pane->Page);
    return {page.topLeft(), page.size().expandedTo({1, 1})};
}

void TileArea::Lay() {
    m_stale = false;
    const auto* layout = m_tiles->Shown();
    if (!layout) return;
    setGeometry(m_area);
    m_places = PlacesOf(*layout, m_tiles->Focus(), ToRect(m_area), Measures());
    LayHeaders();
    ShowFaces();
    update();
}

void TileArea::LayHeaders() {
    std::erase_if(m_headers, [this](const auto& each) {
        if (m_places.Find(each.first)) return false;
        // It may be the one that was just clicked.
        each.second->hide();
        each.second->deleteLater();
        return true;
    });
    for (const TilePane& each : m_places.Panes) {
        const QRect place = ToQRect(each.Header).translated(-m_area.topLeft());
        auto* header = m_headers.contains(each.Number) ? m_headers.at(each.Number) : nullptr;
        if (!header && !place.isEmpty()) header = MakeHeader(each.Number);
        if (!header) continue;
        header->setGeometry(place);
        header->setVisible(!place.isEmpty());
    }
}

TileHeader* TileArea::MakeHeader(std::int32_t index) {
    auto* header = new TileHeader(this);
    m_headers[index] = header;
    header->Selected.ConnectForLife([this, index] { m_focus.Select(index); });
    header->DoubleClicked.ConnectForLife([this, index] { m_tiles->ToggleFull(index); });
    header->CloseRequested.ConnectForLife([this, index] { CloseRequested(index); });
    header->MenuRequested.ConnectForLife([this, index] { MenuRequested(index); });
    header->Dragged.ConnectForLife([this, index](QPoint at) { ShowDrop(index, at); });
    header->Dropped.ConnectForLife([this, index](QPoint at) { Drop(index, at); });
    return header;
}

void TileArea::RefreshFaces() { m_clock.Note(TabStripChange::Faces); }

void TileArea::ShowFaces() {
    for (const auto& [index, header] : m_headers) {
        const auto* tab = TabOfView(*m_strip, index);
        if (!tab) continue;
        header->ShowFace(m_shownFaces->IconOf(*tab), m_shownFaces->TitleOf(*tab), index == m_tiles->Focus());
    }
}

std::optional<TileArea::Aim> TileArea::AimAt(std::int32_t index, QPoint at) const {
    const QPoint point = parentWidget()->mapFromGlobal(at);
    const auto* pane = isHidden() ? nullptr : m_places.PaneAt(point.x(), point.y());
    const bool alone = isHidden() && m_area.contains(point);
    if (!m_tiles || (!pane && !alone)) return std::nullopt;
    const std::int32_t under = pane ? pane->Number : m_tiles->Focus();
    const Rect whole = pane ? pane->Whole : ToRect(m_area);
    const auto edge = EdgeAt(whole, point.x(), point.y());
    if (!edge || under == index || under == 0) return std::nullopt;
    return Aim{under, *edge, ToQRect(HalfAt(whole, *edge))};
}

void TileArea::ShowDrop(std::int32_t index, QPoint at) {
    const auto aim = AimAt(index, at);
    m_dropZone.ShowAt(aim ? aim->zone : QRect());
}

bool TileArea::Drop(std::int32_t index, QPoint at) {
    const auto aim = AimAt(index, at);
    HideDrop();
    return aim && m_tiles->Drop(index, aim->at, aim->edge);
}

bool TileArea::Drop(const std::vector<std::int32_t>& indexes, QPoint at) {
    HideDrop();
    if (indexes.empty() || !AimAt(indexes.front(), at)) return false;
    std::set<std::int32_t> all(indexes.begin(), indexes.end());
    all.insert(m_tiles->Focus());
    if (const auto* shown = m_tiles->Shown()) {
        for (const std::int32_t each : shown->Numbers()) all.insert(each);
    }
    if (!m_shownFaces->MayShow(all.size())) return false;
    if (!Drop(indexes.front(), at)) return false;
    m_tiles->ShowBeside(std::vector(indexes.begin() + 1, indexes.end()));
    return true;
}

bool TileArea::event(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
        m_stale = true;
        if (m_tiles && !isHidden()) Changed();
    }
    return QWidget::event(event);
}

void TileArea::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.translate(-m_area.topLeft());
    painter.fillRect(m_area, palette().color(QPalette::Window));
    for (const TileDivider& each : m_places.Dividers) {
        const bool marked = IsMarked(each);
        const QRect place = ToQRect(each.Place);
        const QRect line = each.Upright ? place.adjusted(2, 0, -2, 0) : place.adjusted(0, 2, 0, -2);
        if (marked)
            painter.fillRect(place, palette().color(QPalette::Highlight));
        else
            painter.fillRect(line, palette().color(QPalette::Mid));
    }
    const auto* focused = m_tiles && !m_tiles->HasHeaders() ? m_places.Find(m_tiles->Focus()) : nullptr;
    if (focused && m_places.Panes.size() > 1)
        painter.fillRect(ToQRect(focused->Whole), palette().color(QPalette::Highlight));
}

bool TileArea::IsMarked(const TileDivider& divider) const {
    const auto isIt = [&divider](const auto& other) {
        return other && other->Path == divider.Path && other->Before == divider.Before;
    };
    if (isIt(m_held ? m_held : m_hover)) return true;
    return hasFocus() && isIt(m_places.DividerOf(m_tiles->Focus(), divider.Upright));
}

void TileArea::MoveDividers() {
    if (m_places.Dividers.empty() || isHidden()) return;
    setFocus(Qt::ShortcutFocusReason);
}

void TileArea::Step(bool upright, int by) {
    const auto* divider = m_places.DividerOf(m_tiles->Focus(), upright);
    if (!divider) return;
    const QPoint middle = ToQRect(divider->Place).center();
    m_tiles->MoveDivider(TileDivider(*divider), (upright ? middle.x() : middle.y()) + by, kLeastPane);
}

void TileArea::EqualiseFocused() {
    for (const bool upright : {true, false}) {
        const auto* divider = m_places.DividerOf(m_tiles->Focus(), upright);
        if (divider) m_tiles->Equalise(TilePath(divider->Path));
    }
}

// The page in focus gets the keyboard back.
void TileArea::LeaveDividers() {
    if (auto* tab = TabOfView(*m_strip, m_tiles->Focus())) m_strip->UserClick(tab);
}

void TileArea::keyPressEvent(QKeyEvent* event) {
    const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? 1 : kStep;
    switch (event->key()) {
    case Qt::Key_Left:
        return Step(true, -step);
    case Qt::Key_Right:
        return Step(true, step);
    case Qt::Key_Up:
        return Step(false, -step);
    case Qt::Key_Down:
        return Step(false, step);
    case Qt::Key_Home:
        return EqualiseFocused();
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return LeaveDividers();
    default:
        QWidget::keyPressEvent(event);
    }
}

void TileArea::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void TileArea::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

void TileArea::mousePressEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint() + m_area.topLeft();
    const auto* divider = m_places.DividerAt(point.x(), point.y());
    if (event->button() != Qt::LeftButton || !divider) return event->ignore();
    m_held = *divider;
    update();
}

void TileArea::mouseMoveEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint() + m_area.topLeft();
    if (m_held) return m_tiles->MoveDivider(*m_held, m_held->Upright ? point.x() : point.y(), kLeastPane);
    Hover(m_places.DividerAt(point.x(), point.y()));
}

void TileArea::mouseReleaseEvent(QMouseEvent*) {
    m_held.reset();
    update();
}

void TileArea::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint() + m_area.topLeft();
    const auto* divider = m_places.DividerAt(point.x(), point.y());
    m_held.reset();
    if (event->button() == Qt::LeftButton && divider) m_tiles->Equalise(TilePath(divider->Path));
}

void TileArea::leaveEvent(QEvent*) { Hover(nullptr); }

void TileArea::Hover(const TileDivider* divider) {
    if (divider)
        setCursor(divider->Upright ? Qt::SplitHCursor : Qt::SplitVCursor);
    else
        unsetCursor();
    const auto hover = divider ? std::optional(*divider) : std::nullopt;
    if (std::exchange(m_hover, hover) != hover) update();
}

} // namespace tessa::qt
