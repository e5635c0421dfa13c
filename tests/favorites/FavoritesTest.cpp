#include "favorites/Favorites.h"

#include "base/os/AtomicFile.h"
#include "tests/fakes/NoRights.h"
#include "tests/fakes/System.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

namespace fs = std::filesystem;

std::string Shortcut(const std::string& address) { return "[InternetShortcut]\r\nURL=" + address + "\r\n"; }

class FavoritesTest : public testing::Test {
protected:
    TemporaryFolder m_folder;
    CommandBar m_bar;
    Favorites::Menu m_menu{m_bar};
    Band* m_band = m_bar.AddBand(u"bndFavorites", u"Favorites", BandKind::Menu);
    BeginGroup m_first = BeginGroup::Yes;

    void Put(const std::string& name, const std::string& address = "http://a/") {
        m_folder.Write(name, Shortcut(address));
    }
    void MakeFolder(const std::string& name) const { fs::create_directory(m_folder.Path(name)); }

    /// The band's entries as "id caption name", folders with their band, a separator as "|".
    std::string Scanned(const std::string& below = "") {
        m_band->Clear();
        m_menu.ScanFolder(below.empty() ? m_folder.PathText("").substr(0, m_folder.PathText("").size() - 1)
                                        : m_folder.PathText(below),
                          *m_band, m_first);
        std::string all;
        for (const BandEntry& entry : m_band->Entries()) {
            const Tool& tool = *entry.Item;
            all += (all.empty() ? "" : ", ") + std::string(entry.Group == BeginGroup::Yes ? "| " : "");
            all += std::to_string(tool.Id()) + " " + ToUtf8(tool.Caption()) + " " + ToUtf8(tool.Name());
        }
        return all;
    }
};

TEST_F(FavoritesTest, FoldersComeFirstThenShortcutsEachInBinaryOrder) {
    MakeFolder("news");
    MakeFolder("Work");
    Put("b.url", "http://b/");
    Put("A.url", "http://A/");
    EXPECT_EQ(Scanned(), "| -1 Work , -1 news , 50000 A http://A/, 50001 b http://b/");
    EXPECT_EQ(m_first, BeginGroup::No);
}

TEST_F(FavoritesTest, EntriesAndMenusSayWhatTheyAreMadeFrom) {
    MakeFolder("news");
    Put("a.url", "http://a/");
    Put("b.url", "mnuExit");
    Scanned();
    const auto& entries = m_band->Entries();
    ASSERT_EQ(entries.size(), 3U);
    const Text path = m_folder.PathText("news");
    ASSERT_NE(entries[0].Item->From<MadeFrom::FavoriteFolder>(), nullptr);
    EXPECT_EQ(entries[0].Item->From<MadeFrom::FavoriteFolder>()->path, path);
    ASSERT_NE(entries[1].Item->From<MadeFrom::FavoriteLink>(), nullptr);
    EXPECT_EQ(entries[1].Item->From<MadeFrom::FavoriteLink>()->address, u"http://a/");
    EXPECT_EQ(entries[2].Item->From<MadeFrom::FavoriteLink>()->address, u" mnuExit") << "like its name, no command";
    const Band* menu = m_bar.FindBand(u"zzz" + path);
    ASSERT_NE(menu, nullptr);
    ASSERT_NE(menu->From<MadeFrom::FavoriteFolder>(), nullptr);
    EXPECT_EQ(menu->From<MadeFrom::FavoriteFolder>()->path, path);
}

TEST_F(FavoritesTest, ALongTitleIsCutTo45CharactersAndDots) {
    const std::string title = "A very long title of a page that goes on and on";
    Put(title + ".url");
    EXPECT_EQ(Scanned(), "50000 " + title.substr(0, 45) + "... http://a/");
    fs::remove(m_folder.Path(title + ".url"));
    Put(std::string(45, 'x') + ".url");
    EXPECT_EQ(Scanned(), "50001 " + std::string(45, 'x') + " http://a/");
}

TEST_F(FavoritesTest, TheCutOfATitleHalvesNoCharacter) {
    const std::string before(44, 'x');
    Put(before + "\xF0\x9F\x98\x80.url");
    EXPECT_EQ(Scanned(), "50000 " + before + "... http://a/");
    EXPECT_EQ(RemoveFile(m_folder.Path(before + "\xF0\x9F\x98\x80.url")), Outcome::Done);
    Put(before.substr(1) + "\xF0\x9F\x98\x80.url");
    EXPECT_EQ(Scanned(), "50001 " + before.substr(1) + "\xF0\x9F\x98\x80 http://a/");
}

TEST_F(FavoritesTest, OtherFilesAreNotListed) {
    m_folder.Write("notes.txt", "x");
    m_folder.Write("url", "x");
    m_folder.Write(".url", "x");
    m_folder.Write(".hidden.url", "x");
    MakeFolder(".hidden");
    Put("Upper.URL", "http://u/");
    EXPECT_EQ(Scanned(), "50000 Upper http://u/");
}

TEST_F(FavoritesTest, AFolderThatIsNamedLikeAShortcutIsAFolder) {
    MakeFolder("x.url");
    EXPECT_EQ(Scanned(), "| -1 x.url ");
}

TEST_F(FavoritesTest, EachScanGivesNewIdentifiers) {
    Put("a.url");
    Put("b.url");
    EXPECT_EQ(Scanned(), "50000 a http://a/, 50001 b http://a/");
    EXPECT_EQ(Scanned(), "50002 a http://a/, 50003 b http://a/");
}

TEST_F(FavoritesTest, ShortcutsNeverTakeTheSeparator_Deliberate) {
    Put("a.url");
    EXPECT_EQ(Scanned(), "50000 a http://a/");
    EXPECT_EQ(m_first, BeginGroup::Yes);
}

TEST_F(FavoritesTest, AFolderOpensABandOfItsOwnThatStaysEmpty) {
    MakeFolder("Work");
    Put("Work/a.url");
    Scanned();
    const Tool& tool = *m_band->Entries().front().Item;
    EXPECT_EQ(tool.SubBand, u"zzz" + m_folder.PathText("Work"));
    EXPECT_EQ(tool.Description, m_folder.PathText("Work"));
    const Band* below = m_bar.FindBand(tool.SubBand);
    ASSERT_NE(below, nullptr);
    EXPECT_TRUE(below->Entries().empty());
    EXPECT_EQ(below->Kind(), BandKind::Popup);
    EXPECT_EQ(Scanned("Work"), "50000 a http://a/");
}

TEST_F(FavoritesTest, ALinkCarriesItsAddressAndItsFilesNameVerbatim) {
    Put("R&D.url", "http://a/?b&c");
    Scanned();
    const Tool& tool = *m_band->Entries().front().Item;
    EXPECT_EQ(tool.Name(), u"http://a/?b&c");
    EXPECT_EQ(tool.Description, u"http://a/?b&c");
    EXPECT_EQ(tool.Caption(), u"R&&D") << "no access key";
}

TEST_F(FavoritesTest, FoldersAndLinksHaveTheirPictures) {
    m_menu.LinkPicture = {u"text-html"};
    m_menu.FolderPicture = {u"folder"};
    MakeFolder("Work");
    Put("a.url");
    Scanned();
    EXPECT_EQ(m_band->Entries()[0].Item->Image.Name, u"folder");
    EXPECT_EQ(m_band->Entries()[1].Item->Image.Name, u"text-html");
}

TEST_F(FavoritesTest, OnlyTheFolderThatIsOpenedIsRead) {
    if (kOtherPlatform) GTEST_SKIP() << "a link needs a right of its own";
    MakeFolder("Work");
    MakeFolder("Work/deep");
    // A loop: the folder below is the folder above.
    fs::create_directory_symlink(m_folder.Path(""), m_folder.Path("Work/loop"));
    EXPECT_EQ(Scanned(), "| -1 Work ");
    EXPECT_EQ(m_bar.Bands().size(), 2U);
    EXPECT_EQ(Scanned("Work"), "-1 deep , -1 loop ");
    EXPECT_EQ(Scanned("Work/loop"), "-1 Work ");
    EXPECT_EQ(m_bar.Bands().size(), 5U);
}

TEST_F(FavoritesTest, LinksThatLeadNowhereOrInCirclesDoNoHarm) {
    if (kOtherPlatform) GTEST_SKIP() << "a link needs a right of its own";
    fs::create_symlink(m_folder.Path("self"), m_folder.Path("self"));
    fs::create_symlink(m_folder.Path("none"), m_folder.Path("gone.url"));
    EXPECT_EQ(Scanned(), "50000 gone ");
    EXPECT_EQ(Scanned("self"), "");
}

TEST_F(FavoritesTest, AFolderThatIsMissingOrNoneListsNothing) {
    m_folder.Write("file", "x");
    EXPECT_EQ(Scanned("missing"), "");
    EXPECT_EQ(Scanned("file"), "");
    EXPECT_EQ(Favorites::List(u"").Shortcuts.Count(), 0U);
}

TEST_F(FavoritesTest, WhatMayNotBeReadIsAnEmptyFolderAndALinkToNowhere) {
    if (kOtherPlatform) GTEST_SKIP() << "nobody can become another user for a while";
    MakeFolder("secret");
    Put("secret/page.url");
    Put("closed.url");
    fs::permissions(m_folder.Path("secret"), fs::perms::none);
    fs::permissions(m_folder.Path("closed.url"), fs::perms::none);
    {
        const NoRights none;
        EXPECT_EQ(Scanned("secret"), "");
        EXPECT_EQ(Scanned(), "| -1 secret , 50000 closed ");
        EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("closed.url")), u"");
    }
    EXPECT_EQ(Favorites::List(Text(70'000, u'x')).Folders.Count(), 0U);
    EXPECT_EQ(Favorites::List(Text(u"a\0b", 3)).Folders.Count(), 0U);
}

TEST_F(FavoritesTest, AShortcutThatCannotBeReadIsListedWithoutAnAddress) {
    m_folder.Write("broken.url", "no sections at all");
    m_folder.Write("empty.url", "");
    EXPECT_EQ(Scanned(), "50000 broken , 50001 empty ");
}

TEST_F(FavoritesTest, NamesOfAllKindsAreHarmless) {
    Put("\xE2\x80\xAEgnp.url");
    Put("a b.url");
    Put("...url");
    m_folder.Write("..b.url", "hidden");
    const std::string longest(251, 'n');
    Put(longest + ".url");
    const auto listing = Favorites::List(m_folder.PathText(""));
    EXPECT_EQ(listing.Shortcuts.Count(), 3U);
    EXPECT_EQ(listing.Shortcuts.begin()->Key, u"a b.url");
}

TEST_F(FavoritesTest, NamesOfAnyBytesAreHarmless) {
    if (kOtherPlatform) GTEST_SKIP() << "names are no bytes";
    Put("tab\tand\nline.url");
    Put("latin \xE4.url");
    const auto listing = Favorites::List(m_folder.PathText(""));
    EXPECT_EQ(listing.Shortcuts.Count(), 2U);
    EXPECT_EQ(listing.Shortcuts.begin()->Key, PathFromBytes("latin \xE4.url"));
}

TEST_F(FavoritesTest, NamesThatAreNoTextAreListedByTheirBytesAndMarked) {
    if (kOtherPlatform) GTEST_SKIP() << "names are no bytes";
    MakeFolder("w\xF6rk");
    Put("w\xF6rk/in.url", "http://in/");
    Put("\xE4.url", "http://latin/");
    Put("\xEF\xBF\xBD.url", "http://marked/");
    const auto listing = Favorites::List(m_folder.PathText(""));
    EXPECT_EQ(PathToBytes(listing.Folders.begin()->Key), "w\xF6rk");
    EXPECT_EQ(PathToBytes(listing.Folders.begin()->Value), m_folder.Path("") + "/w\xF6rk");
    const std::string mark = "\xEF\xBF\xBD";
    EXPECT_EQ(Scanned(), "| -1 w" + mark + "rk , 50000 " + mark + " http://latin/, 50001 " + mark + " http://marked/");
    const Tool& folder = *m_band->Entries().front().Item;
    EXPECT_EQ(PathToBytes(folder.Description), m_folder.Path("w\xF6rk"));
    m_menu.ScanFolder(folder.Description, *m_band, m_first);
    EXPECT_EQ(m_band->Entries().back().Item->Name(), u"http://in/");
}

TEST_F(FavoritesTest, ReadsFilesOfTheOtherDesktopAsTheyAre) {
    const auto read = [this](const std::string& bytes) {
        return ToUtf8(Favorites::ReadAddress(m_folder.Write("x.url", bytes)));
    };
    EXPECT_EQ(read("[DEFAULT]\r\nBASEURL=http://base/\r\n[InternetShortcut]\r\nURL=http://a/\r\nModified=1\r\n"),
              "http://a/");
    EXPECT_EQ(read("[DEFAULT]\r\nURL=http://no/\r\n[InternetShortcut]\r\nBASEURL=http://no/\r\n"), "");
    EXPECT_EQ(read("\xEF\xBB\xBF[InternetShortcut]\r\nURL=http://\xC3\xA4/\r\n"), "http://\xC3\xA4/");
    EXPECT_EQ(read("[InternetShortcut]\r\nURL=http://\xE4/\r\n"), "http://\xC3\xA4/");
    EXPECT_EQ(read("[internetshortcut]\nurl = http://a/ \n"), "http://a/");
    EXPECT_EQ(read("[InternetShortcut]\r\nURL=\"http://q/\"\r\n[InternetShortcut.A]\r\nURL=no\r\n"), "http://q/");
}

TEST_F(FavoritesTest, AnAddressIsCutAt511Bytes) {
    m_folder.Write("long.url", Shortcut(std::string(600, 'a')));
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("long.url")).size(), 511U);
    m_folder.Write("cut.url", Shortcut("b\xC3\xBC/" + std::string(505, 'x') + "\xE2\x82\xAC/"));
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("cut.url")), u"b\u00FC/" + Text(505, u'x')) << "no half character";
    m_folder.Write("value.url", Shortcut(std::string(3U << 20, 'a')));
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("value.url")).size(), 511U);
}

TEST_F(FavoritesTest, AHugeFileIsReadInPart) {
    if (kOtherPlatform) GTEST_SKIP() << "no file is longer than the disk has room";
    Put("huge.url", "http://huge/");
    fs::resize_file(m_folder.Path("huge.url"), std::uintmax_t{1} << 40);
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("huge.url")), u"http://huge/");
}

} // namespace

} // namespace tessa
