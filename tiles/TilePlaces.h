#pragma once
#include "base/Units.h"
#include "tiles/TileLayout.h"

namespace tessa {

/// How large what stands around the pages is, in logical pixels.
struct TileMeasures {
    std::int32_t Divider = 5; ///< between two panes
    std::int32_t Header = 0;  ///< above each page; 0 for none
    std::int32_t Frame = 0;   ///< around each page that has no header
};

/// Where a pane lies. One that is too small for its header has none; it may be empty.
struct TilePane {
    std::int32_t Number = 0;
    Rect Whole, Header, Page;
    bool operator==(const TilePane&) const = default;
};

/// What lies between two parts of a row or a column.
struct TileDivider {
    TilePath Path;          ///< of the row or the column
    std::size_t Before = 0; ///< the part before it
    bool Upright = true;    ///< it is moved to the left and to the right
    Rect Place;
    std::int32_t From = 0, To = 0; ///< where both parts begin and end, along the way in which it is moved
    bool operator==(const TileDivider&) const = default;
};

/// Where all of a layout lies in an area.
struct TilePlaces {
    std::vector<TilePane> Panes;
    std::vector<TileDivider> Dividers;

    /// Nothing for a pane that is not shown.
    [[nodiscard]] const TilePane* Find(std::int32_t number) const;
    [[nodiscard]] const TilePane* PaneAt(std::int32_t x, std::int32_t y) const;
    [[nodiscard]] const TileDivider* DividerAt(std::int32_t x, std::int32_t y) const;
    /// The divider at the pane's right or lower edge, else that at its left or upper one; nothing for none.
    [[nodiscard]] const TileDivider* DividerOf(std::int32_t number, bool upright) const;
};

/// The panes share the area without a gap but for the dividers. These are left out where there is no room for them.
/// With `Full`, the pane `focus` has it alone.
[[nodiscard]] TilePlaces PlacesOf(const TileLayout& layout, std::int32_t focus, const Rect& area,
                                  const TileMeasures& measures);

/// The edge of a rectangle that a point of it is near to; nothing in its middle and outside.
[[nodiscard]] std::optional<TileEdge> EdgeAt(const Rect& place, std::int32_t x, std::int32_t y);
/// The half of a rectangle that lies at that edge.
[[nodiscard]] Rect HalfAt(const Rect& place, TileEdge edge);

/// Moves a divider, its middle to that place along its way; each part keeps `least` as far as there is room.
void MoveDivider(TileLayout& layout, const TileDivider& divider, std::int32_t to, std::int32_t least);

} // namespace tessa
