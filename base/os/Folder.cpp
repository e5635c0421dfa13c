#include "base/os/Folder.h"

#include <algorithm>
#include <filesystem>

std::vector<FolderEntry> ListFolder(const std::string& path) {
    std::vector<FolderEntry> entries;
    std::error_code failed;
    std::filesystem::directory_iterator each(path, failed);
    for (; !failed && each != std::filesystem::directory_iterator(); each.increment(failed)) {
        std::string name = each->path().filename().string();
        if (name.starts_with('.')) continue;
        std::error_code broken;
        const bool isFolder = each->is_directory(broken);
        entries.push_back({std::move(name), isFolder && !broken});
    }
    std::ranges::sort(entries, {}, &FolderEntry::Name);
    return entries;
}

bool EndsLike(std::string_view name, std::string_view ending) {
    if (name.size() < ending.size()) return false;
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c; };
    return std::ranges::equal(name.substr(name.size() - ending.size()), ending, {}, lower);
}
