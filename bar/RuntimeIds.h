#pragma once
#include <cstdint>

namespace tessa {

/// The numbers that tools get which are made while the program runs. What such a tool is, says its source.
namespace RuntimeIds {

/// The ids of one kind.
struct Range {
    std::int32_t First, Last;
    [[nodiscard]] constexpr bool Has(std::int32_t id) const { return id >= First && id <= Last; }
};

inline constexpr Range kFavorites{50000, 99999};
inline constexpr Range kGroups{150000, 199999};
/// What every folder of Favorites has for an id.
inline constexpr std::int32_t kFolder = -1;

/// The next id of a range. `next` is the caller's to keep for the whole run, and 0 before the first use. Ids count on
/// from one rebuild of a menu to the next. After the last id comes the first again; the menus that showed it are
/// rebuilt by then. Only more entries than a range has ids would share some, which then open what they should all the
/// same.
[[nodiscard]] constexpr std::int32_t Take(Range range, std::int32_t& next) {
    const std::int32_t id = range.Has(next) ? next : range.First;
    next = id + 1;
    return id;
}

} // namespace RuntimeIds

} // namespace tessa
