#pragma once
#include <cstdint>

/// The ids of tools that are made at run time say what the tools are.
namespace RuntimeIds {

enum class Kind { None, Favorite, Group };

/// Counted up for the whole run, ids may leave their range; then they are another kind's, or no kind's.
[[nodiscard]] constexpr Kind KindOf(std::int32_t id) {
    if (id >= 50000 && id < 100000) return Kind::Favorite;
    return id >= 150000 && id < 200000 ? Kind::Group : Kind::None;
}

/// Whether a tool was made at run time. Those laid out by design have numbers below.
[[nodiscard]] constexpr bool IsMade(std::int32_t id) { return id >= 50000; }

} // namespace RuntimeIds
