#include "base/os/Paths.h"

#include "base/os/RootLength.h"

#include <algorithm>

namespace tessa {

namespace {

/// Where the last name of a path begins.
std::size_t LastName(const std::string& path) {
    const auto separator = std::find_if(path.rbegin(), path.rend(), IsSeparator);
    return static_cast<std::size_t>(path.rend() - separator);
}

} // namespace

std::string FolderAbove(const std::string& path) {
    const std::size_t name = LastName(path), root = RootLength(path);
    if (name <= root) return path.substr(0, root);
    return path.substr(0, name - 1);
}

std::string LastNameOf(const std::string& path) { return path.substr(std::max(LastName(path), RootLength(path))); }

bool IsAbsolute(const std::string& path) { return RootLength(path) > 0; }

bool IsFolder(const std::string& path) { return WhatLiesAt(path) == Lies::Folder; }

} // namespace tessa
