// Tests: BookmarksWrite
#include "favorites/Bookmarks.h"

#include "favorites/FavoriteFiles.h"
#include "favorites/Favorites.h"
#include "tests/fakes/ShownBookmarks.h"
#include "tests/fakes/System.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

// What needs the reader of bookmarks files is tested in favorites/bookmarks.

namespace {

namespace fs = std::filesystem;

TEST(Bookmarks, AreCountedInAllFolders) {
    const BookmarkFolder all{u"", {{u"A", u"http://a/"}}, {{u"F", {{u"B", u"http://b/"}}, {{u"Deep", {}, {}}}}}};
    EXPECT_EQ(Bookmarks::Count(all), 2U);
    EXPECT_EQ(Bookmarks::Count({}), 0U);
}

TEST(Bookmarks, AreWrittenWithWhatHtmlNeedsInPlaceOfSigns) {
    const std::string html = Bookmarks::Write({u"", {{u"A & <b>", u"http://a/?\"q\""}}, {{u"F", {}, {}}}});
    EXPECT_NE(html.find("<DT><H3>F</H3>"), std::string::npos) << html;
    EXPECT_NE(html.find("<A HREF=\"http://a/?&quot;q&quot;\">A &amp; &lt;b&gt;</A>"), std::string::npos) << html;
}

TEST(Bookmarks, FavoritesGoOutAndComeInWithTheirFolders) {
    if (kOtherPlatform) GTEST_SKIP() << "a link needs a right of its own";
    const TemporaryFolder from, to;
    fs::create_directory(from.Path("Work"));
    fs::create_directory_symlink(from.Path(""), from.Path("Work/loop"));
    const Text root = Favorites::FolderOf(from.PathText("x"));
    ASSERT_TRUE(Favorites::AddShortcut(root, u"A", u"http://a/"));
    ASSERT_TRUE(Favorites::AddShortcut(from.PathText("Work"), u"B", u"http://b/"));
    const auto all = Bookmarks::FromFavorites(root);
    EXPECT_EQ(Shown(all), "{A>http://a/;Work{B>http://b/;loop{}}}");
    const Text target = Favorites::FolderOf(to.PathText("x"));
    EXPECT_EQ(Bookmarks::ToFavorites(all, target), 2U);
    EXPECT_EQ(Shown(Bookmarks::FromFavorites(target)), Shown(all));
    EXPECT_EQ(Bookmarks::ToFavorites(all, target), 2U);
    EXPECT_EQ(Favorites::ReadAddress(to.Path("Work (2)/B.url")), u"http://b/");
}

} // namespace

} // namespace tessa
