#include "script/BusNames.h"

#include "base/os/Paths.h"

#include <cstdint>

namespace tessa {

namespace {

// FNV-1a: two folders of one user get different names, and the same folder always the same.
std::uint64_t HashOf(std::string_view bytes) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char each : bytes) hash = (hash ^ static_cast<unsigned char>(each)) * 0x100000001B3;
    return hash;
}

std::string InHex(std::uint64_t number) {
    std::string digits(16, '0');
    for (auto each = digits.rbegin(); each != digits.rend(); ++each, number >>= 4)
        *each = "0123456789abcdef"[number & 15];
    return digits;
}

} // namespace

namespace BusNames {

std::string NameFor(const std::string& stateFolder) {
    return "example.tessaview.TessaView.Home" + InHex(HashOf(RealPath(stateFolder).value_or(stateFolder)));
}

std::string StateFolder(const Environment& environment) {
    if (!environment.tessaviewHome.empty()) return AbsolutePath(environment.tessaviewHome);
    // A relative path there is to be ignored, as the program does.
    const std::string base =
        IsAbsolute(environment.configHome) ? environment.configHome : environment.home + "/.config";
    return base + "/tessaview";
}

} // namespace BusNames

} // namespace tessa
