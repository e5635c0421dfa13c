#pragma once
#include <cstdint>
#include <string>

namespace tessa {

// What differs in locks between systems. For base/os alone.
namespace LockedFile {

/// What no open file has for a number.
inline constexpr std::intptr_t kNone = -1;

enum class Tried {
    Held,
    Taken,       ///< another process or another `FileLock` of this one has it
    Interrupted, ///< worth another try at once
    Refused
};

/// Opens a file to be locked, made when missing, for the user alone. `kNone` when there can be no such file.
[[nodiscard]] std::intptr_t Open(const std::string& path);
[[nodiscard]] Tried Try(std::intptr_t file);
/// Gives the lock back with it.
void Close(std::intptr_t file);

} // namespace LockedFile

} // namespace tessa
