#pragma once
#include "base/os/MemoryReader.h"

#include <span>

namespace tessa {

/// How short memory is.
enum class Shortage {
    None,  ///< there is room
    Short, ///< it is getting short
    Severe ///< it is very short: the kernel may soon end programs
};

/// Judges by what the kernel says whether memory is short. A level is left only when clearly more is free than when it
/// was entered. So the answer does not flap.
class MemoryShortage {
public:
    /// Judges anew by these rooms; the shortest one counts.
    Shortage Note(std::span<const MemoryRoom> rooms) { return m_level = Judge(m_level, rooms); }
    [[nodiscard]] Shortage Level() const { return m_level; }

    /// The level that follows on `before`. Without rooms nothing is short.
    [[nodiscard]] static Shortage Judge(Shortage before, std::span<const MemoryRoom> rooms);
    /// With less than so many bytes free, a room of that size is on the level; which is not `None`.
    [[nodiscard]] static std::int64_t Least(Shortage level, std::int64_t total);

private:
    Shortage m_level = Shortage::None;
};

} // namespace tessa
