#include "tiles/TileLayout.h"

#include <algorithm>
#include <set>
#include <span>
#include <utility>

namespace tessa {

namespace {

using Kind = TilePart::Kind;

TilePart PaneOf(std::int32_t number) { return {.What = Kind::Pane, .Number = number}; }

void AddNumbers(const TilePart& part, std::vector<std::int32_t>& numbers) {
    if (part.What == Kind::Pane) numbers.push_back(part.Number);
    for (const TilePart& each : part.Parts) AddNumbers(each, numbers);
}

std::vector<std::int32_t> EachOnce(const std::vector<std::int32_t>& numbers) {
    std::vector<std::int32_t> once;
    std::set<std::int32_t> seen;
    for (const std::int32_t number : numbers) {
        if (number > 0 && number <= TileLayout::kMostNumber && seen.insert(number).second) once.push_back(number);
    }
    if (once.size() > TileLayout::kMostPanes) once.resize(TileLayout::kMostPanes);
    return once;
}

// One part alone needs no row around it.
TilePart Gathered(Kind kind, std::vector<TilePart> parts) {
    if (parts.size() == 1) return std::move(parts.front());
    return {.What = kind, .Parts = std::move(parts)};
}

TilePart Gathered(Kind kind, const std::vector<std::int32_t>& numbers) {
    std::vector<TilePart> panes;
    for (const std::int32_t number : numbers) panes.push_back(PaneOf(number));
    return Gathered(kind, std::move(panes));
}

std::optional<TileLayout> LayoutOf(TilePart root) {
    if (root.What == Kind::Pane || root.Parts.empty()) return std::nullopt;
    return TileLayout{.Root = std::move(root)};
}

std::int64_t SumOf(const std::vector<TilePart>& parts) {
    std::int64_t sum = 0;
    for (const TilePart& each : parts) sum += each.Weight;
    return sum;
}

std::int32_t AsWeight(std::int64_t weight) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(weight, 1, TilePart::kMostWeight));
}

// A row that stands in a row is a part of it. What its parts have of its room, they have of the outer one's.
void TakeInSameKind(TilePart& part) {
    std::vector<TilePart> parts;
    for (TilePart& each : part.Parts) {
        if (each.What != part.What) {
            parts.push_back(std::move(each));
            continue;
        }
        const std::int64_t sum = SumOf(each.Parts), weight = each.Weight;
        for (TilePart& inner : each.Parts) {
            inner.Weight = AsWeight(weight * inner.Weight / sum);
            parts.push_back(std::move(inner));
        }
    }
    part.Parts = std::move(parts);
}

// Nothing when nothing of the part is left.
std::optional<TilePart> Kept(const TilePart& part, const std::function<std::int32_t(std::int32_t)>& become) {
    if (part.What == Kind::Pane) {
        const std::int32_t number = become(part.Number);
        if (number <= 0 || number > TileLayout::kMostNumber) return std::nullopt;
        return TilePart{.What = Kind::Pane, .Number = number, .Weight = part.Weight};
    }
    TilePart kept{.What = part.What, .Weight = part.Weight};
    for (const TilePart& each : part.Parts) {
        if (auto one = Kept(each, become)) kept.Parts.push_back(*std::move(one));
    }
    if (kept.Parts.empty()) return std::nullopt;
    if (kept.Parts.size() == 1) {
        TilePart only = std::move(kept.Parts.front());
        only.Weight = part.Weight;
        return only;
    }
    TakeInSameKind(kept);
    return kept;
}

Kind KindOf(TileEdge edge) { return edge == TileEdge::Left || edge == TileEdge::Right ? Kind::Row : Kind::Column; }

bool IsBefore(TileEdge edge) { return edge == TileEdge::Left || edge == TileEdge::Top; }

struct Splitting {
    std::int32_t at;
    TileEdge edge;
    std::int32_t added;
};

void AddBeside(std::vector<TilePart>& parts, std::size_t place, const Splitting& how) {
    TilePart& there = parts[place];
    TilePart pane = PaneOf(how.added);
    pane.Weight = AsWeight(there.Weight / 2);
    there.Weight = AsWeight(there.Weight - pane.Weight);
    const auto where = static_cast<std::ptrdiff_t>(IsBefore(how.edge) ? place : place + 1);
    parts.insert(parts.begin() + where, std::move(pane));
}

void SplitPane(TilePart& pane, const Splitting& how) {
    TilePart split{.What = KindOf(how.edge), .Weight = pane.Weight};
    split.Parts = {PaneOf(pane.Number)};
    split.Parts.insert(IsBefore(how.edge) ? split.Parts.begin() : split.Parts.end(), PaneOf(how.added));
    pane = std::move(split);
}

bool SplitIn(TilePart& part, const Splitting& how, std::size_t depth) {
    for (std::size_t i = 0; i < part.Parts.size(); ++i) {
        TilePart& each = part.Parts[i];
        if (each.What != Kind::Pane) {
            if (SplitIn(each, how, depth + 1)) return true;
        } else if (each.Number == how.at) {
            if (part.What == KindOf(how.edge)) return AddBeside(part.Parts, i, how), true;
            if (depth >= TileLayout::kMostDepth) return false;
            return SplitPane(each, how), true;
        }
    }
    return false;
}

/// The row or the column that the pane lies in; nothing when there is none.
TilePart* PartAround(TilePart& part, std::int32_t number) {
    for (TilePart& each : part.Parts) {
        if (each.What == Kind::Pane && each.Number == number) return &part;
        if (auto* found = PartAround(each, number)) return found;
    }
    return nullptr;
}

// Small weights could not say where a divider is to the pixel.
void RefineWeights(std::vector<TilePart>& parts) {
    if (SumOf(parts) >= TilePart::kMostWeight / 100) return;
    for (TilePart& each : parts) each.Weight = AsWeight(std::int64_t{each.Weight} * 100);
}

/// The pane gives those behind it, so many of them, as much of what they have together as it keeps.
void ShareBehind(std::vector<TilePart>& parts, std::int32_t number, std::size_t behind) {
    const auto first = std::ranges::find(parts, number, &TilePart::Number);
    const std::span shared(first, first + static_cast<std::ptrdiff_t>(behind) + 1);
    std::int64_t left = 0;
    for (const TilePart& each : shared) left += each.Weight;
    for (std::size_t i = shared.size(); i > 0; --i) {
        shared[i - 1].Weight = AsWeight(left / static_cast<std::int64_t>(i));
        left -= shared[i - 1].Weight;
    }
}

} // namespace

std::vector<std::int32_t> TileLayout::Numbers() const {
    std::vector<std::int32_t> numbers;
    AddNumbers(Root, numbers);
    return numbers;
}

bool TileLayout::Has(std::int32_t number) const {
    const auto numbers = Numbers();
    return std::ranges::find(numbers, number) != numbers.end();
}

std::int32_t TileLayout::Neighbour(std::int32_t number) const {
    const auto numbers = Numbers();
    const auto found = std::ranges::find(numbers, number);
    if (found == numbers.end() || numbers.size() < 2) return 0;
    return found + 1 == numbers.end() ? *(found - 1) : *(found + 1);
}

TilePart* TileLayout::Find(const TilePath& path) {
    TilePart* part = &Root;
    for (const std::size_t step : path) {
        if (step >= part->Parts.size()) return nullptr;
        part = &part->Parts[step];
    }
    return part->What == Kind::Pane ? nullptr : part;
}

namespace TileLayouts {

std::optional<TileLayout> Columns(const std::vector<std::int32_t>& numbers) {
    return LayoutOf(Gathered(Kind::Row, EachOnce(numbers)));
}

std::optional<TileLayout> Rows(const std::vector<std::int32_t>& numbers) {
    return LayoutOf(Gathered(Kind::Column, EachOnce(numbers)));
}

std::optional<TileLayout> Grid(const std::vector<std::int32_t>& numbers) {
    const auto once = EachOnce(numbers);
    std::size_t columns = 1;
    while (columns * columns < once.size()) ++columns;
    const std::size_t rows = (once.size() + columns - 1) / columns;
    std::vector<TilePart> all;
    auto next = once.begin();
    for (std::size_t row = 0; row < rows; ++row) {
        // The first rows take what does not go up.
        const std::size_t count = once.size() / rows + (row < once.size() % rows ? 1 : 0);
        const auto end = next + static_cast<std::ptrdiff_t>(count);
        all.push_back(Gathered(Kind::Row, std::vector(next, end)));
        next = end;
    }
    return LayoutOf(Gathered(Kind::Column, std::move(all)));
}

std::optional<TileLayout> Main(std::int32_t large, const std::vector<std::int32_t>& numbers) {
    auto others = EachOnce(numbers);
    std::erase(others, large);
    if (large <= 0 || large > TileLayout::kMostNumber || others.empty()) return std::nullopt;
    if (others.size() == TileLayout::kMostPanes) others.pop_back();
    TilePart first = PaneOf(large);
    first.Weight = 2 * TilePart::kUsualWeight;
    return LayoutOf(
        Gathered(Kind::Row, std::vector<TilePart>{std::move(first), Gathered(Kind::Column, std::move(others))}));
}

bool Split(TileLayout& layout, std::int32_t at, TileEdge edge, std::int32_t added) {
    const auto numbers = layout.Numbers();
    const bool there = std::ranges::find(numbers, added) != numbers.end();
    if (there || added <= 0 || added > TileLayout::kMostNumber || numbers.size() >= TileLayout::kMostPanes)
        return false;
    return SplitIn(layout.Root, {at, edge, added}, 1);
}

bool SplitEqually(TileLayout& layout, std::int32_t at, const std::vector<std::int32_t>& added) {
    auto* row = PartAround(layout.Root, at);
    if (row && row->What == Kind::Row && added.size() > 1) RefineWeights(row->Parts);
    std::size_t split = 0;
    for (auto each = added.rbegin(); each != added.rend(); ++each) split += Split(layout, at, TileEdge::Right, *each);
    if (split > 0) ShareBehind(PartAround(layout.Root, at)->Parts, at, split);
    return split > 0;
}

std::optional<TileLayout> Without(TileLayout layout, std::int32_t number) {
    return Renumbered(layout, [number](std::int32_t each) { return each == number ? 0 : each; });
}

std::optional<TileLayout> Renumbered(const TileLayout& layout,
                                     const std::function<std::int32_t(std::int32_t)>& become) {
    std::set<std::int32_t> seen;
    auto root = Kept(layout.Root, [&](std::int32_t number) {
        const std::int32_t is = become(number);
        return seen.insert(is).second ? is : 0;
    });
    if (!root || root->What == Kind::Pane) return std::nullopt;
    root->Weight = TilePart::kUsualWeight;
    return TileLayout{.Root = *std::move(root), .Full = layout.Full, .Linked = layout.Linked};
}

void Equalise(TileLayout& layout, const TilePath& path) {
    if (auto* part = layout.Find(path)) {
        for (TilePart& each : part->Parts) each.Weight = TilePart::kUsualWeight;
    }
}

void Resize(TileLayout& layout, const TilePath& path, std::size_t before, std::int32_t lengthBefore,
            std::int32_t lengthBehind) {
    auto* part = layout.Find(path);
    const std::int64_t lengths = std::int64_t{lengthBefore} + lengthBehind;
    if (!part || before + 1 >= part->Parts.size() || lengthBefore < 0 || lengthBehind < 0 || lengths == 0) return;
    RefineWeights(part->Parts);
    TilePart &first = part->Parts[before], &second = part->Parts[before + 1];
    const std::int64_t both = std::int64_t{first.Weight} + second.Weight;
    first.Weight = AsWeight((both * lengthBefore + lengths / 2) / lengths);
    second.Weight = AsWeight(both - first.Weight);
}

} // namespace TileLayouts

} // namespace tessa
