#include "base/os/Folder.h"

#include <algorithm>

namespace tessa {

bool EndsLike(std::string_view name, std::string_view ending) {
    if (name.size() < ending.size()) return false;
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c; };
    return std::ranges::equal(name.substr(name.size() - ending.size()), ending, {}, lower);
}

} // namespace tessa
