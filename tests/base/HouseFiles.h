#pragma once

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// What the tests read that look at the house's own files.
namespace house {

/// One file of the house: its path from the project's folder, with '/' between the names, and what stands in it.
struct File {
    std::string path;
    std::string text;
};

inline std::string Read(const std::string& path) {
    std::ifstream file(std::filesystem::path(SOURCE_ROOT) / path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Build folders hold what tools have made, hidden ones are not part of the house.
inline bool IsNoPart(const std::string& folder) { return folder.starts_with("build") || folder.starts_with("."); }

/// All files of the house whose names end in one of `endings`, such as ".h".
inline std::vector<File> FilesWith(std::initializer_list<std::string_view> endings) {
    namespace fs = std::filesystem;
    std::vector<File> files;
    for (fs::recursive_directory_iterator each(SOURCE_ROOT), end; each != end; ++each) {
        if (each->is_directory() && IsNoPart(each->path().filename().string())) each.disable_recursion_pending();
        if (!each->is_regular_file()) continue;
        for (const std::string_view ending : endings) {
            if (each->path().extension() != ending) continue;
            const std::string path = fs::relative(each->path(), SOURCE_ROOT).generic_string();
            files.push_back({path, Read(path)});
        }
    }
    return files;
}

} // namespace house

} // namespace tessa
