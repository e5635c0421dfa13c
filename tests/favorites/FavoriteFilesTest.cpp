// Tests: Folder, FreeNames, Paths
#include "favorites/FavoriteFiles.h"

#include "favorites/Favorites.h"
#include "tests/fakes/System.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

namespace fs = std::filesystem;

class FavoriteFilesTest : public testing::Test {
protected:
    TemporaryFolder m_folder;

    Text Root() const { return Favorites::FolderOf(m_folder.PathText("x")); }
    void MakeFolder(const std::string& name) const { fs::create_directories(m_folder.Path(name)); }
    static void AddOne(const Text& folder, TextView title, TextView address) {
        EXPECT_TRUE(Favorites::AddShortcut(folder, title, address));
    }
    static std::string Name(const std::optional<Text>& path) {
        return path ? fs::path(PathToBytes(*path)).filename().string() : "(failed)";
    }
};

TEST_F(FavoriteFilesTest, AShortcutIsWrittenAsTheOtherDesktopReadsIt) {
    EXPECT_EQ(Name(Favorites::AddShortcut(Root(), u"A page", u"http://a/?\u00E4")), "A page.url");
    EXPECT_EQ(m_folder.Read("A page.url"), "[InternetShortcut]\r\nURL=http://a/?\xC3\xA4\r\n");
    EXPECT_EQ(m_folder.Files(), 1U);
}

TEST_F(FavoriteFilesTest, AShortcutNeverReplacesAnother) {
    AddOne(Root(), u"A", u"http://1/");
    EXPECT_EQ(Name(Favorites::AddShortcut(Root(), u"A", u"http://2/")), "A (2).url");
    EXPECT_EQ(Name(Favorites::AddShortcut(Root(), u"A", u"http://3/")), "A (3).url");
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), u"http://1/");
}

TEST_F(FavoriteFilesTest, TheFolderOfAShortcutIsMadeWhenMissing) {
    EXPECT_EQ(Name(Favorites::AddShortcut(m_folder.PathText("new/deep"), u"A", u"http://a/")), "A.url");
    EXPECT_EQ(m_folder.Read("new/deep/A.url"), "[InternetShortcut]\r\nURL=http://a/\r\n");
}

TEST_F(FavoriteFilesTest, AShortcutThatCannotBeWrittenLeavesNothing) {
    m_folder.Write("file", "x");
    EXPECT_EQ(Name(Favorites::AddShortcut(m_folder.PathText("file"), u"A", u"http://a/")), "(failed)");
    EXPECT_EQ(Name(Favorites::MakeFolder(m_folder.PathText("file"), u"A")), "(failed)");
    EXPECT_EQ(m_folder.Files(), 1U);
}

TEST_F(FavoriteFilesTest, AnAddressIsOneLineWhateverItHolds) {
    AddOne(Root(), u"A", u"http://a/\r\n[InternetShortcut]\nURL=evil");
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), u"http://a/[InternetShortcut]URL=evil");
}

TEST_F(FavoriteFilesTest, ShortcutsStandByTheirTitlesBehindTheFolders) {
    for (const TextView title : {u"b", u"a", u"a", u"a!"}) AddOne(Root(), title, u"http://a/");
    MakeFolder("z");
    std::string titles;
    for (const Favorites::Item& each : Favorites::Items(Root())) titles += ToUtf8(each.Title) + ";";
    EXPECT_EQ(titles, "z;a;a (2);a!;b;");
}

TEST_F(FavoriteFilesTest, AnotherAddressLeavesTheRestOfTheFileAsItIs) {
    m_folder.Write("A.url", "[InternetShortcut]\r\nURL=http://a/\r\nIconIndex=1\r\n[Other]\r\nx=y\r\n");
    EXPECT_EQ(Favorites::SetAddress(m_folder.PathText("A.url"), u"http://b/\nx"), Outcome::Done);
    EXPECT_EQ(m_folder.Read("A.url"), "[InternetShortcut]\r\nURL=http://b/x\r\nIconIndex=1\r\n[Other]\r\nx=y\r\n");
}

TEST_F(FavoriteFilesTest, AnAddressThatCouldNotBeReadBackIsRefused) {
    AddOne(Root(), u"A", u"http://a/");
    const Text path = m_folder.PathText("A.url");
    EXPECT_EQ(Favorites::SetAddress(path, Text(511, u'x')), Outcome::Done);
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), Text(511, u'x'));
    EXPECT_EQ(Favorites::SetAddress(path, Text(512, u'x')), Outcome::Failed);
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), Text(511, u'x'));
    EXPECT_EQ(Favorites::SetAddress(m_folder.PathText("gone.url"), u"http://a/"), Outcome::Failed);
    EXPECT_EQ(m_folder.Files(), 1U) << "nothing was made";
}

TEST_F(FavoriteFilesTest, AnAddressIsFoundInFoldersBelowAndALoopEnds) {
    if (kOtherPlatform) GTEST_SKIP() << "a link needs a right of its own";
    MakeFolder("Work/deep");
    fs::create_directory_symlink(m_folder.Path(""), m_folder.Path("Work/loop"));
    AddOne(m_folder.PathText("Work/deep"), u"A", u"http://a/");
    EXPECT_EQ(Favorites::FindAddress(Root(), u"http://a/"), m_folder.PathText("Work/deep/A.url"));
    EXPECT_EQ(Favorites::FindAddress(Root(), u"http://b/"), std::nullopt);
    m_folder.Write("empty.url", "");
    EXPECT_EQ(Favorites::FindAddress(Root(), u""), std::nullopt);
}

TEST_F(FavoriteFilesTest, NamesAreMended) {
    EXPECT_EQ(Favorites::FileNameOf(u"a/b\nc"), u"a-b c");
    EXPECT_EQ(Favorites::FileNameOf(u"  .hidden "), u"hidden");
    EXPECT_EQ(Favorites::FileNameOf(u"../../x"), u"-..-x");
    EXPECT_EQ(Favorites::FileNameOf(u" .. "), u"Page");
    EXPECT_EQ(Favorites::FileNameOf(u""), u"Page");
    EXPECT_EQ(ToUtf8(Favorites::FileNameOf(Text(300, u'\u00E4'))).size(), 240U);
    Text pairs(1, u'x');
    for (int i = 0; i < 100; ++i) pairs += u"\U0001F600";
    EXPECT_TRUE(FromUtf8(ToUtf8(Favorites::FileNameOf(pairs))));
    EXPECT_EQ(ToUtf8(Favorites::FileNameOf(pairs)).find("\xEF\xBF\xBD"), std::string::npos);
    EXPECT_EQ(Favorites::FileNameOf(Text{u'a', char16_t{0xDCFC}, u'b', char16_t{0xD83D}}), u"a\uFFFDb\uFFFD")
        << "half a character of a title is no byte of a name";
    EXPECT_EQ(Name(Favorites::AddShortcut(Root(), Text(300, u'n'), u"x")), std::string(240, 'n') + ".url");
    EXPECT_EQ(Name(Favorites::AddShortcut(Root(), Text(300, u'n'), u"x")), std::string(240, 'n') + " (2).url");
}

TEST_F(FavoriteFilesTest, RenamingKeepsTheEndingAndReplacesNobody) {
    AddOne(Root(), u"A", u"http://a/");
    AddOne(Root(), u"B", u"http://b/");
    MakeFolder("Work");
    EXPECT_EQ(Name(Favorites::Rename(m_folder.PathText("A.url"), u"B")), "B (2).url");
    EXPECT_EQ(Name(Favorites::Rename(m_folder.PathText("B.url"), u"B")), "B.url") << "its own name is free";
    EXPECT_EQ(Name(Favorites::Rename(m_folder.PathText("Work"), u"Play")), "Play");
    EXPECT_EQ(Name(Favorites::Rename(m_folder.PathText("gone.url"), u"x")), "(failed)");
}

TEST_F(FavoriteFilesTest, MovingGoesIntoAFolderButNotIntoItself) {
    AddOne(Root(), u"A", u"http://1/");
    MakeFolder("Work/deep");
    AddOne(m_folder.PathText("Work"), u"A", u"http://2/");
    EXPECT_EQ(Name(Favorites::Move(m_folder.PathText("A.url"), m_folder.PathText("Work"))), "A (2).url");
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("Work/A.url")), u"http://2/");
    EXPECT_EQ(Name(Favorites::Move(m_folder.PathText("Work"), m_folder.PathText("Work/deep"))), "(failed)");
    EXPECT_EQ(Name(Favorites::Move(m_folder.PathText("Work/deep"), Root())), "deep");
    EXPECT_EQ(Name(Favorites::Move(m_folder.PathText("Work"), m_folder.PathText("none"))), "(failed)");
}

TEST_F(FavoriteFilesTest, DeletingAFolderLeavesWhatItsLinksLeadTo) {
    if (kOtherPlatform) GTEST_SKIP() << "a link needs a right of its own";
    MakeFolder("Work/deep");
    const TemporaryFolder other;
    other.Write("kept", "x");
    fs::create_directory_symlink(other.Path(""), m_folder.Path("Work/link"));
    EXPECT_EQ(Favorites::Delete(m_folder.PathText("Work")), Outcome::Done);
    EXPECT_EQ(m_folder.Files(), 0U);
    EXPECT_EQ(other.Read("kept"), "x");
    EXPECT_EQ(Favorites::Delete(m_folder.PathText("Work")), Outcome::Failed);
}

TEST_F(FavoriteFilesTest, WhatHasANameThatIsNoTextIsRenamedMovedAndDeletedByItsBytes) {
    if (kOtherPlatform) GTEST_SKIP() << "names are no bytes";
    MakeFolder("w\xF6rk");
    m_folder.Write("\xE4.url", "[InternetShortcut]\r\nURL=http://a/\r\n");
    const auto items = Favorites::Items(Root());
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(PathToBytes(items[1].Title), "\xE4");
    const auto moved = Favorites::Move(items[1].Path, items[0].Path);
    ASSERT_EQ(Name(moved), "\xE4.url") << "a name is kept as it is when only the folder changes";
    EXPECT_TRUE(fs::exists(m_folder.Path("w\xF6rk/\xE4.url")));
    EXPECT_EQ(Name(Favorites::AddShortcut(items[0].Path, u"b", u"http://b/")), "b.url");
    EXPECT_EQ(Favorites::Items(items[0].Path).size(), 2U);
    EXPECT_EQ(Name(Favorites::MakeFolder(items[0].Path, u"deep")), "deep");
    const auto renamed = Favorites::Rename(*moved, u"a");
    ASSERT_EQ(Name(renamed), "a.url");
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("w\xF6rk/a.url")), u"http://a/");
    EXPECT_EQ(Favorites::Delete(*renamed), Outcome::Done);
    EXPECT_EQ(Name(Favorites::Rename(items[0].Path, u"Work")), "Work");
    EXPECT_TRUE(fs::exists(m_folder.Path("Work/b.url")));
}

TEST_F(FavoriteFilesTest, ItemsStandInTheOrderOfTheMenu) {
    AddOne(Root(), u"b", u"http://b/");
    AddOne(Root(), u"A", u"http://a/");
    MakeFolder("z");
    const auto items = Favorites::Items(Root());
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0], (Favorites::Item{u"z", m_folder.PathText("z"), u"", true}));
    EXPECT_EQ(items[1], (Favorites::Item{u"A", m_folder.PathText("A.url"), u"http://a/", false}));
    EXPECT_EQ(items[2].Title, u"b");
    EXPECT_EQ(Favorites::Folders(Root()).size(), 1U);
}

} // namespace

} // namespace tessa
