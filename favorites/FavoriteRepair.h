#pragma once
#include "base/Text.h"

#include <cstddef>

namespace tessa {

// When no Favorites can be added because of what lies on the disk.

namespace Favorites {

/// The folder inside the Favorites folder for shortcuts that cannot be read.
inline constexpr TextView kDamagedFolder = u"Damaged";

/// Whether shortcuts can be kept in a folder: it can be written to, or be made where it is missing. Changes nothing.
[[nodiscard]] bool CanKeep(TextView folder);

/// What a repair has done.
struct Repaired {
    bool Works = false;      ///< shortcuts can be kept now
    bool Made = false;       ///< the folder was missing
    bool Opened = false;     ///< the folder was closed to its owner
    Text SetAside{};         ///< what lay where the folder belongs, by its new name; empty for nothing
    std::size_t Damaged = 0; ///< entries that were moved to `kDamagedFolder`
    bool operator==(const Repaired&) const = default;
};

/// Sees to it that shortcuts can be kept in a folder. Deletes nothing. A file in the folder's place gets another name.
/// Shortcuts whose address cannot be read get a folder of their own, those of sub-folders too.
Repaired Repair(TextView folder);

/// The same in words for the user.
[[nodiscard]] Text WordsOf(const Repaired& repaired);

} // namespace Favorites

} // namespace tessa
