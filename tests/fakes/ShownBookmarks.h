#pragma once
#include "favorites/Bookmarks.h"

namespace tessa {

/// A folder as "Name{link>address,...Folder{...}}".
inline std::string Shown(const BookmarkFolder& folder) {
    std::string all = ToUtf8(folder.Name) + "{";
    for (const Bookmark& each : folder.Links) all += ToUtf8(each.Title) + ">" + ToUtf8(each.Address) + ";";
    for (const BookmarkFolder& each : folder.Folders) all += Shown(each);
    return all + "}";
}

} // namespace tessa
