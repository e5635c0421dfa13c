#include "base/os/Paths.h"

#include "base/os/RootLength.h"

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

namespace tessa {

bool IsSeparator(char byte) { return byte == '/'; }

std::size_t RootLength(std::string_view path) { return path.starts_with('/') ? 1 : 0; }

std::string AbsolutePath(const std::string& path) {
    std::error_code unknown;
    const auto absolute = std::filesystem::absolute(path, unknown);
    return unknown ? path : absolute.string();
}

std::optional<std::string> RealPath(const std::string& path) {
    char* real = ::realpath(path.c_str(), nullptr);
    if (!real) return std::nullopt;
    std::string resolved(real);
    std::free(real);
    return resolved;
}

Lies WhatLiesAt(const std::string& path) {
    struct stat facts {};
    if (::lstat(path.c_str(), &facts) != 0) return Lies::Nothing;
    return ::stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) ? Lies::Folder : Lies::Other;
}

bool IsLink(const std::string& path) {
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) == 0 && S_ISLNK(facts.st_mode);
}

bool LeadsSomewhere(const std::string& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0;
}

bool IsSameFolder(const std::string& one, const std::string& other) {
    struct stat first {};
    struct stat second {};
    if (::stat(one.c_str(), &first) != 0 || ::stat(other.c_str(), &second) != 0) return false;
    return S_ISDIR(first.st_mode) && first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

} // namespace tessa
