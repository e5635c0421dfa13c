#include "tiles/TilePlaces.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

/// A page less high than its header shows nothing worth a title.
constexpr std::int32_t kLeastPages = 2;
/// How near to an edge counts as at it, in parts of the whole.
constexpr double kNear = 1.0 / 3;

Rect At(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    return {{left}, {top}, {std::max(width, 0)}, {std::max(height, 0)}};
}

bool Holds(const Rect& place, std::int32_t x, std::int32_t y) {
    return x >= place.left.value && y >= place.top.value && x < place.left.value + place.width.value &&
           y < place.top.value + place.height.value;
}

class TileLayer {
public:
    TileLayer(const TileMeasures& measures, TilePlaces& places) : m_measures(measures), m_places(places) {}

    void Lay(const TilePart& part, const Rect& area) {
        if (part.What == TilePart::Kind::Pane)
            LayPane(part.Number, area);
        else
            LayParts(part, area);
    }

    void LayPane(std::int32_t number, const Rect& area) {
        const std::int32_t left = area.left.value, top = area.top.value, width = area.width.value,
                           height = area.height.value;
        TilePane pane{.Number = number, .Whole = area, .Header = At(left, top, width, 0), .Page = area};
        if (m_measures.Header > 0 && height >= m_measures.Header * kLeastPages) {
            pane.Header = At(left, top, width, m_measures.Header);
            pane.Page = At(left, top + m_measures.Header, width, height - m_measures.Header);
        }
        const std::int32_t frame = m_measures.Header > 0 ? 0 : m_measures.Frame;
        if (width > 4 * frame && height > 4 * frame)
            pane.Page = At(pane.Page.left.value + frame, pane.Page.top.value + frame, pane.Page.width.value - 2 * frame,
                           pane.Page.height.value - 2 * frame);
        m_places.Panes.push_back(pane);
    }

private:
    void LayParts(const TilePart& part, const Rect& area) {
        const bool row = part.What == TilePart::Kind::Row;
        const std::int32_t length = row ? area.width.value : area.height.value;
        const auto count = static_cast<std::int32_t>(part.Parts.size());
        const bool parted = length - m_measures.Divider * (count - 1) >= count;
        const std::int32_t divider = parted ? m_measures.Divider : 0;
        const std::int64_t room = length - divider * (count - 1);
        std::int64_t sum = 0, before = 0;
        for (const TilePart& each : part.Parts) sum += each.Weight;
        std::int32_t start = 0, previous = 0;
        for (std::size_t i = 0; i < part.Parts.size(); ++i) {
            const auto begin = static_cast<std::int32_t>((room * before + sum / 2) / sum);
            before += part.Parts[i].Weight;
            const auto end = static_cast<std::int32_t>((room * before + sum / 2) / sum);
            if (i > 0 && divider > 0) AddDivider(i - 1, row, area, {previous, start - divider, start + end - begin});
            m_path.push_back(i);
            Lay(part.Parts[i], Along(area, row, start, end - begin));
            m_path.pop_back();
            previous = start;
            start += end - begin + divider;
        }
    }

    static Rect Along(const Rect& area, bool row, std::int32_t from, std::int32_t length) {
        return row ? At(area.left.value + from, area.top.value, length, area.height.value)
                   : At(area.left.value, area.top.value + from, area.width.value, length);
    }

    /// Where the part before begins, where the divider does, and where the part behind ends.
    void AddDivider(std::size_t before, bool row, const Rect& area, const std::array<std::int32_t, 3>& along) {
        const std::int32_t offset = row ? area.left.value : area.top.value;
        m_places.Dividers.push_back({.Path = m_path,
                                     .Before = before,
                                     .Upright = row,
                                     .Place = Along(area, row, along[1], m_measures.Divider),
                                     .From = offset + along[0],
                                     .To = offset + along[2]});
    }

    const TileMeasures& m_measures;
    TilePlaces& m_places;
    TilePath m_path;
};

} // namespace

const TilePane* TilePlaces::Find(std::int32_t number) const {
    const auto found = std::ranges::find(Panes, number, &TilePane::Number);
    return found == Panes.end() ? nullptr : &*found;
}

const TilePane* TilePlaces::PaneAt(std::int32_t x, std::int32_t y) const {
    const auto found = std::ranges::find_if(Panes, [&](const TilePane& each) { return Holds(each.Whole, x, y); });
    return found == Panes.end() ? nullptr : &*found;
}

const TileDivider* TilePlaces::DividerAt(std::int32_t x, std::int32_t y) const {
    const auto found = std::ranges::find_if(Dividers, [&](const TileDivider& each) { return Holds(each.Place, x, y); });
    return found == Dividers.end() ? nullptr : &*found;
}

const TileDivider* TilePlaces::DividerOf(std::int32_t number, bool upright) const {
    const TilePane* pane = Find(number);
    if (!pane) return nullptr;
    const auto begin = [](const Rect& rect, bool across) { return across ? rect.left.value : rect.top.value; };
    const auto end = [](const Rect& rect, bool across) {
        return across ? rect.left.value + rect.width.value : rect.top.value + rect.height.value;
    };
    const TileDivider* before = nullptr;
    for (const TileDivider& each : Dividers) {
        const bool along = begin(each.Place, !upright) < end(pane->Whole, !upright) &&
                           begin(pane->Whole, !upright) < end(each.Place, !upright);
        if (each.Upright != upright || !along) continue;
        if (begin(each.Place, upright) == end(pane->Whole, upright)) return &each;
        if (end(each.Place, upright) == begin(pane->Whole, upright)) before = &each;
    }
    return before;
}

TilePlaces PlacesOf(const TileLayout& layout, std::int32_t focus, const Rect& area, const TileMeasures& measures) {
    TilePlaces places;
    TileLayer layer(measures, places);
    const Rect room = At(area.left.value, area.top.value, area.width.value, area.height.value);
    if (layout.Full && layout.Has(focus))
        layer.LayPane(focus, room);
    else
        layer.Lay(layout.Root, room);
    return places;
}

std::optional<TileEdge> EdgeAt(const Rect& place, std::int32_t x, std::int32_t y) {
    if (!Holds(place, x, y)) return std::nullopt;
    const double across = (x - place.left.value + 0.5) / place.width.value;
    const double down = (y - place.top.value + 0.5) / place.height.value;
    struct Distance {
        TileEdge edge;
        double far;
    };
    const std::array all{Distance{TileEdge::Left, across}, Distance{TileEdge::Right, 1 - across},
                         Distance{TileEdge::Top, down}, Distance{TileEdge::Bottom, 1 - down}};
    const auto nearest = std::ranges::min_element(all, {}, &Distance::far);
    if (nearest->far > kNear) return std::nullopt;
    return nearest->edge;
}

Rect HalfAt(const Rect& place, TileEdge edge) {
    const std::int32_t left = place.left.value, top = place.top.value, width = place.width.value,
                       height = place.height.value;
    switch (edge) {
    case TileEdge::Left:
        return At(left, top, width / 2, height);
    case TileEdge::Right:
        return At(left + width - width / 2, top, width / 2, height);
    case TileEdge::Top:
        return At(left, top, width, height / 2);
    case TileEdge::Bottom:
        return At(left, top + height - height / 2, width, height / 2);
    }
    return place;
}

void MoveDivider(TileLayout& layout, const TileDivider& divider, std::int32_t to, std::int32_t least) {
    const std::int32_t own = divider.Upright ? divider.Place.width.value : divider.Place.height.value;
    const std::int32_t room = divider.To - divider.From - own;
    if (room <= 0) return;
    const std::int32_t kept = std::min(least, room / 2);
    const std::int32_t before = std::clamp(to - own / 2 - divider.From, kept, room - kept);
    TileLayouts::Resize(layout, divider.Path, divider.Before, before, room - before);
}

} // namespace tessa
