#pragma once
#include "history/Passages.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// A place in a page whose passage gave way to another one at each of so many visits.
struct RestlessPlace {
    std::uint64_t Place = 0;
    std::uint8_t Times = 0;

    bool operator==(const RestlessPlace&) const = default;
};

/// What is kept of a page as it was read, to compare with: the keys of its passages in their order, and its restless
/// places.
struct PageAsRead {
    std::vector<std::uint64_t> Keys{};
    std::vector<RestlessPlace> Restless{};

    bool operator==(const PageAsRead&) const = default;
};

/// What is new in a page since it was read.
struct PageNews {
    std::vector<std::size_t> New{}; ///< the numbers of the passages, from 0
    int Share = 0;                  ///< of the page, in percent; at least 1 when anything is new
    Text FirstWords{};              ///< of the first new passage that is no heading, else of the first

    [[nodiscard]] bool Any() const { return !New.empty(); }
};

/// Compares pages passage by passage, wherever the passages stand.
namespace NewsOf {

/// So often a place has changed at one visit after the other before it counts for nothing.
inline constexpr std::uint8_t kRestlessTimes = 2;

struct Comparison {
    PageNews News;
    PageAsRead Now; ///< to compare with the next time
};
/// What counts for nothing: advertisements, what changes by itself (see `NewsKey`), and what has stood at a restless
/// place. A heading and a long text count wherever they stand.
[[nodiscard]] Comparison Compare(const PageAsRead& before, const std::vector<Passage>& passages);
/// A page that was never read before.
[[nodiscard]] PageAsRead FirstTime(const std::vector<Passage>& passages);

/// As it is kept, and back; nothing of bytes that are damaged, so that such a page counts as never read.
[[nodiscard]] std::string ToBytes(const PageAsRead& page);
[[nodiscard]] PageAsRead FromBytes(std::string_view bytes);

} // namespace NewsOf

} // namespace tessa
