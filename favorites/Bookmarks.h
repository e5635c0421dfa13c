#pragma once
#include "base/Text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// The HTML file of bookmarks that every browser writes and reads.
namespace Bookmarks {

/// The most that is read of a file, in bytes.
inline constexpr std::size_t kMostBytes = std::size_t{256} << 20;

/// Done by the library in favorites/bookmarks. Reads any bytes; what is no bookmarks file yields no links. Folders
/// deeper than 64 are joined with the one above. Links without an address, and scripts, are left out.
[[nodiscard]] BookmarkFolder Read(std::string_view html);

[[nodiscard]] std::string Write(const BookmarkFolder& all);

/// How many links there are, in all folders.
[[nodiscard]] std::size_t Count(const BookmarkFolder& folder);

/// The Favorites below a folder. A link that leads back to a folder above is left out.
[[nodiscard]] BookmarkFolder FromFavorites(TextView folder);
/// Writes all links as shortcuts into a folder, folders as folders, beside what is there. How many were written.
std::size_t ToFavorites(const BookmarkFolder& bookmarks, TextView folder);

} // namespace Bookmarks
