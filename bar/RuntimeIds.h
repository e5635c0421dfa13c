#pragma once
#include <cstdint>

/// The ids of tools that are made at run time say what the tools are.
namespace RuntimeIds {

enum class Kind { None, Favorite, Group };

/// The ids of one kind.
struct Range {
    std::int32_t First, Last;
    [[nodiscard]] constexpr bool Has(std::int32_t id) const { return id >= First && id <= Last; }
};

inline constexpr Range kFavorites{50000, 99999};
inline constexpr Range kGroups{150000, 199999};
/// What every folder of Favorites has for an id.
inline constexpr std::int32_t kFolder = -1;

[[nodiscard]] constexpr Kind KindOf(std::int32_t id) {
    if (kFavorites.Has(id)) return Kind::Favorite;
    return kGroups.Has(id) ? Kind::Group : Kind::None;
}

/// The next id of a range. `next` is the caller's to keep for the whole run, and 0 before the first use. Ids count on
/// from one rebuild of a menu to the next, and behind the last comes the first again: by then the menus that showed it
/// have long been rebuilt. Only more entries than a range has ids would share some, which then open what they should
/// all the same.
[[nodiscard]] constexpr std::int32_t Take(Range range, std::int32_t& next) {
    const std::int32_t id = range.Has(next) ? next : range.First;
    next = id + 1;
    return id;
}

/// Whether a tool was made at run time. Those laid out by design have numbers below.
[[nodiscard]] constexpr bool IsMade(std::int32_t id) { return id >= kFavorites.First; }

} // namespace RuntimeIds
