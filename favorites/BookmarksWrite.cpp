#include "base/Html.h"
#include "base/os/Paths.h"
#include "favorites/Bookmarks.h"
#include "favorites/FavoriteFiles.h"

#include <set>
#include <string>

namespace tessa {

namespace {

constexpr std::size_t kDeepestWritten = 64;

void WriteList(std::string& html, const BookmarkFolder& folder, const std::string& indent) {
    const std::string inner = indent + "    ";
    html += indent + "<DL><p>\n";
    for (const BookmarkFolder& each : folder.Folders) {
        html += inner + "<DT><H3>" + HtmlEscaped(ToUtf8(each.Name)) + "</H3>\n";
        WriteList(html, each, inner);
    }
    for (const Bookmark& each : folder.Links)
        html += inner + "<DT><A HREF=\"" + HtmlEscaped(ToUtf8(each.Address)) + "\">" + HtmlEscaped(ToUtf8(each.Title)) +
                "</A>\n";
    html += indent + "</DL><p>\n";
}

using Visited = std::set<std::string>;

BookmarkFolder Collect(TextView folder, Visited& above) {
    BookmarkFolder all;
    const auto real = RealPath(PathToBytes(folder));
    if (!real || above.size() >= kDeepestWritten || !above.insert(*real).second) return all;
    for (const Favorites::Item& item : Favorites::Items(folder)) {
        if (!item.IsFolder) {
            all.Links.push_back({item.Title, item.Address});
        } else {
            all.Folders.push_back(Collect(item.Path, above));
            all.Folders.back().Name = item.Title;
        }
    }
    above.erase(*real);
    return all;
}

} // namespace

namespace Bookmarks {

std::string Write(const BookmarkFolder& all) {
    std::string html = "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
                       "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
                       "<TITLE>Bookmarks</TITLE>\n<H1>Bookmarks</H1>\n";
    WriteList(html, all, "");
    return html;
}

std::size_t Count(const BookmarkFolder& folder) {
    std::size_t count = folder.Links.size();
    for (const BookmarkFolder& each : folder.Folders) count += Count(each);
    return count;
}

BookmarkFolder FromFavorites(TextView folder) {
    Visited above;
    return Collect(folder, above);
}

std::size_t ToFavorites(const BookmarkFolder& bookmarks, TextView folder) {
    std::size_t written = 0;
    for (const Bookmark& each : bookmarks.Links) {
        const Text& title = each.Title.empty() ? each.Address : each.Title;
        if (Favorites::AddShortcut(folder, title, each.Address)) ++written;
    }
    for (const BookmarkFolder& each : bookmarks.Folders) {
        if (const auto made = Favorites::MakeFolder(folder, each.Name)) written += ToFavorites(each, *made);
    }
    return written;
}

} // namespace Bookmarks

} // namespace tessa
