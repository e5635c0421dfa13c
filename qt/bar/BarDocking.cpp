#include "qt/bar/BarDocking.h"

#include "bar/DockRows.h"
#include "qt/bar/ComboBox.h"
#include "qt/bar/ToolBars.h"

#include <QEvent>
#include <QLayout>
#include <QLibraryInfo>
#include <QScopedValueRollback>
#include <QTimer>
#include <QToolBar>
#include <QVersionNumber>
#include <algorithm>
#include <array>

namespace tessa::qt {

namespace {

constexpr int kWidestMinimum = 360; // of a toolbar with a box, in logical pixels
// Of a box that fills its row: it makes room for others while it is wider than the first value.
constexpr int kFairFilling = 280;
constexpr int kNarrowestFilling = 120;
constexpr int kUprightBox = 160; // a column beside the page leaves the page its room

constexpr Qt::WindowFlags kFloatingBar =
    Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

struct SideName {
    DockSide side;
    Qt::ToolBarArea area;
};

constexpr std::array kSides{
    SideName{DockSide::Top, Qt::TopToolBarArea},
    SideName{DockSide::Bottom, Qt::BottomToolBarArea},
    SideName{DockSide::Left, Qt::LeftToolBarArea},
    SideName{DockSide::Right, Qt::RightToolBarArea},
};

Qt::ToolBarArea AreaOf(DockSide side) {
    const auto* found = std::ranges::find(kSides, side, &SideName::side);
    return found == kSides.end() ? Qt::TopToolBarArea : found->area;
}

// How far a toolbar's row is from its window edge, and how far along the row the toolbar is.
std::pair<int, int> Standing(const QToolBar& bar, DockSide side) {
    const QPoint at = bar.pos();
    switch (side) {
    case DockSide::Bottom:
        return {-at.y(), at.x()};
    case DockSide::Left:
        return {at.x(), at.y()};
    case DockSide::Right:
        return {-at.x(), at.y()};
    default:
        return {at.y(), at.x()};
    }
}

/// The boxes that fill a row have what the others leave. Where that is too little for them, the others shrink first.
void ShareRoom(int room, const std::vector<ComboBox*>& filling, const std::vector<ComboBox*>& others) {
    const int count = static_cast<int>(filling.size());
    int wanted = 0, least = 0;
    for (const auto* box : others) {
        wanted += box->Wanted();
        least += box->Narrowest();
    }
    const int left = count == 0 ? wanted : std::clamp(room - count * kFairFilling, least, wanted);
    for (auto* box : others) {
        const int spare = box->Wanted() - box->Narrowest();
        const bool shrinks = left < wanted;
        box->SetRoom(shrinks ? box->Narrowest() + (left - least) * spare / (wanted - least) : 0);
    }
    for (auto* box : filling) box->SetRoom(std::max((room - left) / count, kNarrowestFilling));
}

} // namespace

BarDocking::BarDocking(CommandBar& bar, QMainWindow& window, ToolBars& toolBars)
    : m_bar(bar), m_window(window), m_toolBars(toolBars) {
    // Each step of an animation would have the page composed again.
    m_window.setAnimated(false);
    m_window.installEventFilter(this);
    Follow();
}

std::vector<Band*> BarDocking::ToolBarBands() const {
    std::vector<Band*> bands;
    for (const auto& band : m_bar.Bands()) {
        if (m_toolBars.Find(*band)) bands.push_back(band.get());
    }
    return bands;
}

void BarDocking::Follow() {
    m_connections.End();
    for (Band* band : ToolBarBands()) {
        QToolBar* bar = m_toolBars.Find(*band);
        bar->installEventFilter(this);
        m_connections += band->Dock.Attach([this](const Docking&) {
            if (!m_reading) Schedule();
        });
        m_connections += band->Visible.Attach([bar](bool visible) { bar->setVisible(visible); });
    }
    Arrange();
}

void BarDocking::Schedule() {
    if (std::exchange(m_scheduled, true)) return;
    QTimer::singleShot(0, this, [this] {
        if (m_scheduled) Arrange();
    });
}

void BarDocking::Flush() {
    if (m_scheduled) Arrange();
    ShareRows(Hints::Stale);
    m_window.layout()->activate();
}

void BarDocking::Arrange() {
    m_scheduled = false;
    for (const SideName& each : kSides) ArrangeSide(each.side);
    for (Band* band : ToolBarBands()) {
        QToolBar& bar = *m_toolBars.Find(*band);
        if (band->Dock().Side == DockSide::Floating) Float(*band, bar);
        bar.setVisible(band->Visible());
    }
    ShareRows(Hints::Stale);
}

void BarDocking::ArrangeSide(DockSide side) {
    std::vector<Band*> bands = ToolBarBands();
    std::erase_if(bands, [&](const Band* band) { return band->Dock().Side != side; });
    std::ranges::stable_sort(bands, {}, [](const Band* b) { return std::pair(b->Dock().Row, b->Dock().Place); });
    const Band* before = nullptr;
    for (const Band* band : bands) {
        QToolBar* bar = m_toolBars.Find(*band);
        m_window.removeToolBar(bar);
        if (bar->isFloating()) bar->setParent(&m_window, Qt::Widget);
        if (before && before->Dock().Row != band->Dock().Row) m_window.addToolBarBreak(AreaOf(side));
        m_window.addToolBar(AreaOf(side), bar);
        before = band;
    }
}

void BarDocking::Float(const Band& band, QToolBar& bar) {
    if (m_window.toolBarArea(&bar) == Qt::NoToolBarArea) m_window.addToolBar(Qt::TopToolBarArea, &bar);
    bar.setOrientation(Qt::Horizontal);
    if (bar.windowFlags() != kFloatingBar) bar.setWindowFlags(kFloatingBar);
    bar.adjustSize();
    bar.move(band.Dock().Left.value, band.Dock().Top.value);
}

// Those that were shown before their window are behind it.
void BarDocking::ShowFloating() {
    for (const Band* band : ToolBarBands()) {
        QToolBar* bar = m_toolBars.Find(*band);
        if (!bar->isFloating() || bar->isHidden()) continue;
        bar->hide();
        bar->show();
    }
}

// While it is dragged it has no frame, for the pointer holds it by its handle.
void BarDocking::Frame(QToolBar& bar) {
    if (!bar.isFloating() || bar.windowFlags() == kFloatingBar) return;
    const QPoint at = bar.pos();
    const bool shown = !bar.isHidden();
    bar.setWindowFlags(kFloatingBar);
    bar.move(at);
    bar.setVisible(shown);
}

// Its own close button hides a floating toolbar; the ways to show it again are those of any hidden one.
void BarDocking::OnClosed(const QObject& closed) {
    for (Band* band : ToolBarBands()) {
        const QToolBar* bar = m_toolBars.Find(*band);
        if (bar == &closed && bar->isFloating()) band->Visible = false;
    }
}

std::vector<std::vector<Band*>> BarDocking::RowsOf(DockSide side) const {
    std::vector<std::pair<std::pair<int, int>, Band*>> seen;
    for (Band* band : ToolBarBands()) {
        const QToolBar* bar = m_toolBars.Find(*band);
        if (!bar->isHidden() && !bar->isFloating() && m_window.toolBarArea(bar) == AreaOf(side))
            seen.emplace_back(Standing(*bar, side), band);
    }
    std::ranges::stable_sort(seen, {}, [](const auto& each) { return each.first; });
    std::vector<std::vector<Band*>> rows;
    const int* row = nullptr;
    for (const auto& [standing, band] : seen) {
        if (!row || *row != standing.first) rows.emplace_back();
        row = &standing.first;
        rows.back().push_back(band);
    }
    return rows;
}

// While a toolbar floats, Qt 6.11 keeps the layout from before the drag. Meanwhile it lays out nothing, neither when a
// window is resized nor when a toolbar is docked. Only to restore a state ends that.
void BarDocking::Thaw() {
    if (QLibraryInfo::version() < QVersionNumber(6, 11)) return;
    const auto floats = [this](const Band* band) { return m_toolBars.Find(*band)->isFloating(); };
    if (std::ranges::any_of(ToolBarBands(), floats)) m_window.restoreState(m_window.saveState());
}

void BarDocking::Read() {
    // What the program wants is not yet shown.
    if (m_scheduled) return;
    Thaw();
    m_window.layout()->activate();
    const QScopedValueRollback reading(m_reading, true);
    std::vector<std::vector<std::vector<Band*>>> rows;
    for (const SideName& each : kSides) rows.push_back(RowsOf(each.side));
    for (std::size_t i = 0; i < kSides.size(); ++i) AssignDockRows(m_bar, kSides[i].side, rows[i]);
    for (Band* band : ToolBarBands()) {
        QToolBar* bar = m_toolBars.Find(*band);
        if (!bar->isFloating()) continue;
        Frame(*bar);
        const Docking& old = band->Dock();
        band->Dock = Docking{DockSide::Floating, old.Row, old.Place, {bar->x()}, {bar->y()}};
    }
    ShareRows(Hints::Stale);
}

void BarDocking::ShareRows(Hints hints) {
    std::vector<Band*> upright = ToolBarBands();
    for (const DockSide side : {DockSide::Top, DockSide::Bottom}) {
        for (const auto& row : RowsOf(side)) {
            ShareRow(row, hints);
            std::erase_if(upright, [&](Band* band) { return std::ranges::find(row, band) != row.end(); });
        }
    }
    for (const Band* band : upright) {
        QToolBar* bar = m_toolBars.Find(*band);
        ShareColumn(*bar);
    }
}

// The others of a column do not grow with the widest.
void BarDocking::ShareColumn(QToolBar& bar) {
    const bool upright = bar.orientation() == Qt::Vertical && !bar.isFloating();
    const auto boxes = bar.findChildren<ComboBox*>();
    bar.setMinimumWidth(0);
    for (auto* box : boxes) box->SetRoom(upright ? kUprightBox : 0);
    bar.setMaximumWidth(upright && boxes.isEmpty() ? bar.sizeHint().width() : QWIDGETSIZE_MAX);
}

// A box shrinks before it leaves its toolbar.
void BarDocking::ShareRow(const std::vector<Band*>& row, Hints hints) {
    std::vector<ComboBox*> filling, others;
    int room = m_window.width();
    for (Band* band : row) {
        QToolBar* bar = m_toolBars.Find(*band);
        // It may still know the widths that its boxes had before.
        if (hints == Hints::Stale) bar->layout()->invalidate();
        const int hint = bar->layout()->sizeHint().width();
        int spare = 0;
        room -= hint;
        for (auto* box : bar->findChildren<ComboBox*>()) {
            const int width = box->sizeHint().width();
            spare += width - box->minimumSizeHint().width();
            room += width;
            (box->Shown().FillsRow() ? filling : others).push_back(box);
        }
        bar->setMaximumWidth(QWIDGETSIZE_MAX);
        bar->setMinimumWidth(spare > 0 ? std::clamp(hint - spare, 0, kWidestMinimum) : 0);
    }
    ShareRoom(room, filling, others);
}

bool BarDocking::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool window = watched == &m_window;
    if (window && type == QEvent::Show) QTimer::singleShot(0, this, &BarDocking::ShowFloating);
    if (window && (type == QEvent::Resize || type == QEvent::Show)) ShareRows(Hints::Stale);
    // What asks for a layout has new hints already; to ask again would go on for ever.
    if (window && type == QEvent::LayoutRequest) ShareRows(Hints::Fresh);
    if (!window && type == QEvent::Close) OnClosed(*watched);
    // The toolbar itself has first to do what the release of the button means.
    if (!window && type == QEvent::MouseButtonRelease) QTimer::singleShot(0, this, &BarDocking::Read);
    return QObject::eventFilter(watched, event);
}

} // namespace tessa::qt
