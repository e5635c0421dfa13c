#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace tessa {

/// By which names an instance is driven over the session bus. The bus keeps other users out.
namespace BusNames {

inline constexpr const char* kObject = "/example/tessaview/TessaView";
inline constexpr const char* kInterface = "example.tessaview.TessaView1";
/// What every refusal is called; its message says more, for a person.
inline constexpr const char* kRefused = "example.tessaview.TessaView1.Refused";
/// There are more calls than can be answered.
inline constexpr const char* kTooMany = "example.tessaview.TessaView1.TooManyCalls";

/// The name of whatever instance keeps its state in that folder; the first of several has it.
[[nodiscard]] std::string NameFor(const std::string& stateFolder);

/// What of the environment says where the state lies; empty is not set.
struct Environment {
    std::string tessaviewHome, configHome, home;
};
/// The folder in which an instance keeps its state that starts in that environment.
[[nodiscard]] std::string StateFolder(const Environment& environment);

} // namespace BusNames

} // namespace tessa
