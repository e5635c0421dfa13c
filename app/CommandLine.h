#pragma once
#include "base/Text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// What the program's start learns from its arguments and its surroundings before anything of it is made.
namespace CommandLine {

/// The arguments behind the program's name, as the system gave them. What is for the windowing system, as "-platform",
/// is among them when it is asked whether the program can start. It is gone when they become a text.
using Arguments = std::vector<std::string>;

/// What was found around the program. A variable that is not set is empty.
struct Surroundings {
    bool root = false;             ///< runs with the rights of the system's administrator
    std::string disableSandbox{};  ///< QTWEBENGINE_DISABLE_SANDBOX
    std::string display{};         ///< DISPLAY
    std::string waylandDisplay{};  ///< WAYLAND_DISPLAY
    std::string windowingSystem{}; ///< QT_QPA_PLATFORM
};

/// The answer to an only argument that asks about the program, "--help" or "--version"; absent for all others. Ends
/// with a line end.
[[nodiscard]] std::optional<std::string> Information(const Arguments& arguments);

/// Why the program cannot start here and what to do about it, for a person to read. Absent when it can.
[[nodiscard]] std::optional<std::string> Refusal(const Arguments& arguments, const Surroundings& surroundings);

/// The arguments as the one text that the program opens, unparsed. A group file that a file manager names by a file:
/// address comes by its path.
[[nodiscard]] Text AsText(const Arguments& arguments);

} // namespace CommandLine

} // namespace tessa
