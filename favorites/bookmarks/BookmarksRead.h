#pragma once
#include "base/Text.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace tessa {

/// A page of a bookmarks file.
struct Bookmark {
    Text Title;
    Text Address;
    bool operator==(const Bookmark&) const = default;
};

/// A folder of a bookmarks file, with what it holds. The folder that stands for the whole file has no name.
struct BookmarkFolder {
    Text Name;
    std::vector<Bookmark> Links;
    std::vector<BookmarkFolder> Folders;
};

namespace Bookmarks {

/// The most that is read of a file, in bytes.
inline constexpr std::size_t kMostBytes = std::size_t{256} << 20;

/// Reads any bytes; what is no bookmarks file yields no links. Folders deeper than 64 are joined with the one above.
/// Links without an address, and scripts, are left out.
[[nodiscard]] BookmarkFolder Read(std::string_view html);

} // namespace Bookmarks

} // namespace tessa
