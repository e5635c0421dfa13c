#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace tessa {

/// A part of a layout: a pane, or several parts in a row or a column, which share its room by their weights.
struct TilePart {
    enum class Kind { Pane, Row, Column };
    static constexpr std::int32_t kUsualWeight = 1000, kMostWeight = 1'000'000;

    Kind What = Kind::Pane;
    std::int32_t Number = 0; ///< of a pane: what it shows
    std::int32_t Weight = kUsualWeight;
    std::vector<TilePart> Parts{}; ///< of a row or a column, two at least

    bool operator==(const TilePart&) const = default;
};

/// An edge of a pane.
enum class TileEdge { Left, Right, Top, Bottom };

/// The way to a row or a column, from the outermost: which of the parts, counted from 0.
using TilePath = std::vector<std::size_t>;

/// How several pages lie beside each other. At least two panes, each with a number of its own from 1 on.
struct TileLayout {
    static constexpr std::size_t kMostPanes = 1000;
    /// Rows inside columns inside rows, and so on: nobody sees more of them.
    static constexpr std::size_t kMostDepth = 32;
    static constexpr std::int32_t kMostNumber = 32767;

    TilePart Root;
    bool Full = false;   ///< the pane in focus has all the room
    bool Linked = false; ///< what is done in one pane is done in all

    /// What the panes show, row by row and column by column.
    [[nodiscard]] std::vector<std::int32_t> Numbers() const;
    [[nodiscard]] bool Has(std::int32_t number) const;
    /// The pane that takes the keyboard when that one goes: the next one, or the one before the last. 0 for none.
    [[nodiscard]] std::int32_t Neighbour(std::int32_t number) const;
    /// The row or the column there; nothing when there is none.
    [[nodiscard]] TilePart* Find(const TilePath& path);

    bool operator==(const TileLayout&) const = default;
};

/// Layouts, made and changed. Fewer than two panes make no layout; numbers that come twice count once.
namespace TileLayouts {

/// One beside the other.
[[nodiscard]] std::optional<TileLayout> Columns(const std::vector<std::int32_t>& numbers);
/// One above the other.
[[nodiscard]] std::optional<TileLayout> Rows(const std::vector<std::int32_t>& numbers);
/// In rows that are as long as each other, or one longer.
[[nodiscard]] std::optional<TileLayout> Grid(const std::vector<std::int32_t>& numbers);
/// One large at the left, the others above each other at the right of it.
[[nodiscard]] std::optional<TileLayout> Main(std::int32_t large, const std::vector<std::int32_t>& numbers);

/// Puts a new pane at that edge of the pane `at`, which gives it half of its room. False when that cannot be: `at` is
/// not there, `added` is, or there are too many panes inside each other.
[[nodiscard]] bool Split(TileLayout& layout, std::int32_t at, TileEdge edge, std::int32_t added);
/// Puts new panes right of the pane `at`, in their order, and all of them get the same part of its room. Those that
/// cannot be split off are left out. False when there is none of them.
bool SplitEqually(TileLayout& layout, std::int32_t at, const std::vector<std::int32_t>& added);
/// Without that pane, whose room goes to those beside it. Nothing when less than two are left.
[[nodiscard]] std::optional<TileLayout> Without(TileLayout layout, std::int32_t number);
/// Each pane shows what `become` answers for its number, and goes when that is 0. Nothing when less than two are left.
[[nodiscard]] std::optional<TileLayout> Renumbered(const TileLayout& layout,
                                                   const std::function<std::int32_t(std::int32_t)>& become);
/// All parts of that row or column become equally large.
void Equalise(TileLayout& layout, const TilePath& path);
/// Moves what parts them: the part before it and the part behind it, counted from 0, share by these lengths what both
/// have together. Nothing for lengths below 0 or a place that is none.
void Resize(TileLayout& layout, const TilePath& path, std::size_t before, std::int32_t lengthBefore,
            std::int32_t lengthBehind);

} // namespace TileLayouts

} // namespace tessa
