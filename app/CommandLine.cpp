#include "app/CommandLine.h"

#include "base/Percent.h"
#include "base/Version.h"
#include "base/os/Paths.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::string_view kUsage =
    R"(Usage: tessaview [ADDRESS | GROUP.tvg]
Shows web pages in the tabs of one window.

  ADDRESS     a web address or a local file, opened in a tab
  GROUP.tvg   a TessaGroup: each of its addresses opens in a tab of its own
  --help      show this text and end
  --version   show the version and end

Without an argument the home page opens, with the tabs of the session before where these are remembered. When a
window is open already, it takes the address into a new tab.

Environment:
  TESSAVIEW_HOME                  a folder that everything is kept in: settings, groups, Favorites, what pages store
  TESSAVIEW_DRAWING=software      draw pages without the graphics processor; hardware: with it
  QTWEBENGINE_DISABLE_SANDBOX=1   show pages without the engine's sandbox, which does not work for root
)";

constexpr std::string_view kRootRefused =
    R"(TessaView does not show pages as root, because the page engine's sandbox does not work for root.
Start it as an ordinary user, or set QTWEBENGINE_DISABLE_SANDBOX=1 if you know what you do.
)";

constexpr std::string_view kNoDisplay =
    R"(TessaView needs a display, and there is none: neither DISPLAY nor WAYLAND_DISPLAY is set.
Start it from a desktop session, or on a virtual display: xvfb-run tessaview
)";

constexpr std::string_view kFileScheme = "file://";
constexpr std::string_view kGroupExtension = ".tvg";

// Windows that need neither kind of display, like "offscreen" or "vnc".
bool NeedsNoDisplay(std::string_view windowingSystem) {
    return !windowingSystem.empty() && !windowingSystem.starts_with("xcb") && !windowingSystem.starts_with("wayland");
}

// Of an option for the windowing system, which may have two dashes; empty where it is missing.
std::string ValueOf(const CommandLine::Arguments& arguments, const std::string& option) {
    const auto found = std::ranges::find_if(
        arguments, [&](const std::string& each) { return each == option || each == "-" + option; });
    return found == arguments.end() || found + 1 == arguments.end() ? "" : *(found + 1);
}

// Whether the text is a path from the folder in which the program was started. Any other instance is in another.
bool IsFileHere(const std::string& text) {
    return !IsAbsolute(text) && text.find(':') == std::string::npos && LeadsSomewhere(text);
}

} // namespace

namespace CommandLine {

std::optional<std::string> Information(const Arguments& arguments) {
    if (arguments.size() != 1) return std::nullopt;
    if (arguments.front() == "--help" || arguments.front() == "-h") return std::string(kUsage);
    if (arguments.front() != "--version") return std::nullopt;
    return ToUtf8(Text(Version::kProduct) + u" " + Text(Version::kNumber) + u" Build " + Decimal(Version::kRevision)) +
           "\n";
}

std::optional<std::string> Refusal(const Arguments& arguments, const Surroundings& surroundings) {
    if (surroundings.root && surroundings.disableSandbox != "1") return std::string(kRootRefused);
    const std::string chosen = ValueOf(arguments, "-platform");
    if (NeedsNoDisplay(chosen.empty() ? surroundings.windowingSystem : chosen)) return std::nullopt;
    const bool named = !ValueOf(arguments, "-display").empty();
    if (named || !surroundings.display.empty() || !surroundings.waylandDisplay.empty()) return std::nullopt;
    return std::string(kNoDisplay);
}

Text AsText(const Arguments& arguments) {
    std::string all;
    for (const std::string& argument : arguments) all += (all.empty() ? "" : " ") + argument;
    const bool local = all.starts_with(std::string(kFileScheme) + "/");
    if (local && all.ends_with(kGroupExtension)) all = PercentDecoded(std::string_view(all).substr(kFileScheme.size()));
    if (all.ends_with(kGroupExtension)) return PathFromBytes(all);
    return IsFileHere(all) ? PathFromBytes(AbsolutePath(all)) : FromBytes(all);
}

} // namespace CommandLine

} // namespace tessa
