#include "bar/DockRows.h"

#include <algorithm>

namespace tessa {

namespace {

using Row = std::vector<Band*>;

std::vector<Band*> HiddenOf(const CommandBar& bar, DockSide side) {
    std::vector<Band*> hidden;
    for (const auto& band : bar.Bands()) {
        if (band->Kind() == BandKind::Toolbar && band->Dock().Side == side && !band->Visible())
            hidden.push_back(band.get());
    }
    std::ranges::stable_sort(hidden, {}, [](const Band* b) { return std::pair(b->Dock().Row, b->Dock().Place); });
    return hidden;
}

// The places are still the old ones.
void PutBack(std::vector<Row>& rows, Band* hidden) {
    const Docking& old = hidden->Dock();
    const auto stoodWith = [&](const Band* b) { return b->Dock().Side == old.Side && b->Dock().Row == old.Row; };
    const auto row = std::ranges::find_if(rows, [&](const Row& r) { return std::ranges::any_of(r, stoodWith); });
    if (row != rows.end()) {
        const auto after =
            std::ranges::find_if(*row, [&](const Band* b) { return stoodWith(b) && b->Dock().Place > old.Place; });
        row->insert(after, hidden);
        return;
    }
    const auto below = std::ranges::find_if(
        rows, [&](const Row& r) { return r.front()->Dock().Side == old.Side && r.front()->Dock().Row > old.Row; });
    rows.insert(below, Row{hidden});
}

} // namespace

void AssignDockRows(const CommandBar& bar, DockSide side, std::vector<Row> rows) {
    std::erase_if(rows, [](const Row& row) { return row.empty(); });
    for (Band* hidden : HiddenOf(bar, side)) PutBack(rows, hidden);
    std::int32_t number = 0;
    for (const Row& row : rows) {
        ++number;
        std::int32_t place = 0;
        for (Band* band : row) band->Dock = Docking{side, number, place++, {}, {}};
    }
}

} // namespace tessa
