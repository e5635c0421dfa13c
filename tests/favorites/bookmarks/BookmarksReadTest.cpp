#include "favorites/Bookmarks.h"

#include "tests/fakes/ShownBookmarks.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

constexpr const char* kFirefox = R"(<!DOCTYPE NETSCAPE-Bookmark-file-1>
<!-- This is an automatically generated file. -->
<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=UTF-8">
<TITLE>Bookmarks</TITLE>
<H1>Bookmarks Menu</H1>

<DL><p>
    <DT><A HREF="https://a.example/?x=1&amp;y=2" ADD_DATE="1" ICON="data:image/png;base64,AAAA">A &lt;b&gt;</A>
    <DT><H3 ADD_DATE="1" PERSONAL_TOOLBAR_FOLDER="true">Bar</H3>
    <DD>A description
    <DL><p>
        <DT><A HREF="http://b/">B
          two</A>
        <DT><H3>Deep</H3>
        <DL><p>
            <DT><A HREF="http://c/">C</A>
        </DL><p>
        <DT><A HREF="http://d/">D</A>
    </DL><p>
    <HR>
    <DT><A HREF="http://e/">E</A>
    <DT><H3>Empty</H3>
    <DL><p>
    </DL><p>
</DL>
)";

TEST(BookmarksRead, ReadsWhatBrowsersWrite) {
    EXPECT_EQ(
        Shown(Bookmarks::Read(kFirefox)),
        "{A <b>>https://a.example/?x=1&y=2;E>http://e/;Bar{B two>http://b/;D>http://d/;Deep{C>http://c/;}}Empty{}}");
    EXPECT_EQ(Bookmarks::Count(Bookmarks::Read(kFirefox)), 5U);
}

TEST(BookmarksRead, LeavesOutScriptsAndQueriesOfOneBrowserAlone) {
    EXPECT_EQ(Shown(Bookmarks::Read("<DL><DT><A HREF='javascript:x'>J</A><DT><A HREF='place:sort=8'>P</A>"
                                    "<DT><A>none</A><DT><A HREF='http://a/'>A</A></DL>")),
              "{A>http://a/;}");
}

TEST(BookmarksRead, ReadsAnEightBitFileAndUtf8WithoutBeingTold) {
    EXPECT_EQ(Shown(Bookmarks::Read("<DL><DT><A HREF='http://a/'>\xE4</A></DL>")), "{\xC3\xA4>http://a/;}");
    EXPECT_EQ(Shown(Bookmarks::Read("\xEF\xBB\xBF<DL><DT><A HREF='http://a/'>\xC3\xA4</A></DL>")),
              "{\xC3\xA4>http://a/;}");
}

TEST(BookmarksRead, AnyBytesWillDo) {
    EXPECT_EQ(Shown(Bookmarks::Read("")), "{}");
    EXPECT_EQ(Shown(Bookmarks::Read("no bookmarks at all")), "{}");
    EXPECT_EQ(Shown(Bookmarks::Read(std::string("\0\xFF<DL", 5))), "{}");
    EXPECT_EQ(Shown(Bookmarks::Read("</DL></DL><DT><A HREF='http://a/'>A")), "{A>http://a/;}");
    EXPECT_EQ(Bookmarks::Count(Bookmarks::Read("<DL><DT><A HREF=\"" + std::string(1U << 20, 'a') + "\">x</A>")), 1U);
}

TEST(BookmarksRead, FoldersTooDeepAreJoinedWithTheOneAbove) {
    std::string html;
    for (int i = 0; i < 5000; ++i) html += "<DL><p><DT><H3>f</H3>";
    html += "<DL><DT><A HREF='http://a/'>A</A>";
    const auto all = Bookmarks::Read(html);
    std::size_t depth = 0;
    for (const BookmarkFolder* at = &all; !at->Folders.empty(); at = &at->Folders.front()) ++depth;
    EXPECT_LE(depth, 64U);
}

TEST(BookmarksRead, WhatIsWrittenIsReadBack) {
    BookmarkFolder all{u"", {{u"A & <b> \"q\"", u"http://a/?x&amp;y"}}, {}};
    all.Folders.push_back({u"F\u00E4", {{u"B", u"http://b/"}}, {{u"Deep", {}, {}}}});
    const auto read = Bookmarks::Read(Bookmarks::Write(all));
    EXPECT_EQ(Shown(read), Shown(all));
}

} // namespace

} // namespace tessa
