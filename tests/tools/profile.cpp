// Runs the calls of a script (ProfileScript.h) by our profile functions.
//   profile SCRIPT

#include "base/ini/IniFile.h"
#include "tests/tools/ProfileScript.h"

namespace tessa {

namespace {

using ProfileScript::Field;

std::optional<std::string_view> View(const Field& field) {
    return field ? std::optional<std::string_view>(*field) : std::nullopt;
}

} // namespace

} // namespace tessa

int main(int argc, char** argv) {
    using namespace tessa;
    const auto get = [](const std::string& file, const Field& section, const Field& key, const Field& whenMissing,
                        std::size_t size) {
        return GetPrivateProfileString(file, View(section), View(key), View(whenMissing), size);
    };
    const auto write = [](const std::string& file, const Field& section, const Field& key, const Field& value) {
        return WritePrivateProfileString(file, View(section), View(key), View(value));
    };
    if (argc == 2) return ProfileScript::RunAll(argv[1], {get, write});
    std::fputs("usage: profile SCRIPT\n", stderr);
    return 2;
}
