#pragma once
#include "base/Text.h"
#include "favorites/bookmarks/BookmarksRead.h"

#include <string>

namespace tessa {

/// The HTML file of bookmarks that every browser writes and reads. Reading it needs a library, so that stands in a room
/// of its own.
namespace Bookmarks {

[[nodiscard]] std::string Write(const BookmarkFolder& all);

/// How many links there are, in all folders.
[[nodiscard]] std::size_t Count(const BookmarkFolder& folder);

/// The Favorites below a folder. A link that leads back to a folder above is left out.
[[nodiscard]] BookmarkFolder FromFavorites(TextView folder);
/// Writes all links as shortcuts into a folder, folders as folders, beside what is there. How many were written.
std::size_t ToFavorites(const BookmarkFolder& bookmarks, TextView folder);

} // namespace Bookmarks

} // namespace tessa
