// Tests: MenuEntryCommands, RuntimeIds
#include "commands/RuntimeMenus.h"

#include "groups/frmRenameGroup.h"
#include "tests/Desk.h"
#include "tests/fakes/System.h"
#include "tests/fakes/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tessa {

namespace {

namespace fs = std::filesystem;

class RuntimeMenusTest : public testing::Test {
protected:
    TemporaryFolder m_favorites, m_groups;
    mutable Desk m_desk{{.groupFolder = m_groups.PathText(""), .favoritesFolder = Path(m_favorites)}};
    CommandBar& m_bar = m_desk.Bar();

    void SetUp() override {
        m_desk.StartWithTabs(1);
        m_desk.views.Calls(1);
    }
    static Text Path(const TemporaryFolder& folder) {
        Text path = folder.PathText("");
        path.pop_back();
        return path;
    }
    void Favorite(const std::string& name, const std::string& address) const {
        m_favorites.Write(name + ".url", "[InternetShortcut]\r\nURL=" + address + "\r\n");
    }
    void FavoriteFolder(const std::string& name) const { fs::create_directories(m_favorites.Path(name)); }
    void Group(const std::string& name) const { m_groups.Write(name + ".tvg", "[TessaGroup]\r\nurl1=http://1/\r\n"); }

    /// What a band shows once it has opened: "id caption", tools of the master list by name, "|" before a group.
    std::string Opened(const Text& name) const {
        Band* band = m_bar.FindBand(name);
        if (!band) return "(no band)";
        m_bar.OpenBand(*band);
        std::string all;
        for (const BandEntry& entry : band->Entries()) {
            const Tool& tool = *entry.Item;
            all += (all.empty() ? "" : ", ") + std::string(entry.Group == BeginGroup::Yes ? "| " : "");
            all += tool.IsRunTime() ? std::to_string(tool.Id()) + " " + ToUtf8(tool.Caption()) : ToUtf8(tool.Name());
        }
        return all;
    }
    std::string OpenedFolder(const std::string& name) const { return Opened(u"zzz" + m_favorites.PathText(name)); }
    /// The tools of the band that an entry pops up; nothing when it pops up none.
    std::string PopupOf(const Tool& tool) const {
        std::string all;
        const Connection view = m_bar.PopupWanted.Connect([&](Band& band) {
            for (const BandEntry& entry : band.Entries()) all += (all.empty() ? "" : " ") + ToUtf8(entry.Item->Name());
        });
        const bool popped = m_desk.PopUp(tool);
        EXPECT_EQ(popped, !all.empty());
        return all;
    }
    Tool& Entry(const Text& band, std::size_t position) const {
        return *m_bar.FindBand(band)->Entries().at(position).Item;
    }
};

constexpr const char* kFixed = "mnuAddToFavorites, mnuOrganizeFavorites";
constexpr const char* kFixedGroups = "mnuAddToTessaGroup, mnuSaveAsTessaGroup, mnuOrganizeTessaGroups";

TEST_F(RuntimeMenusTest, FavoritesStandBehindTheFixedEntriesFoldersFirst) {
    Favorite("b", "http://b/");
    Favorite("A", "http://A/");
    FavoriteFolder("news");
    EXPECT_EQ(Opened(u"bndFavorites"), std::string(kFixed) + ", | -1 news, 50000 A, 50001 b");
    EXPECT_FALSE(m_desk.Renews(u"bndFavorites"));
}

TEST_F(RuntimeMenusTest, OpeningFavoritesAgainRebuildsNothingUntilItIsStale) {
    Favorite("a", "http://a/");
    EXPECT_EQ(Opened(u"bndFavorites"), std::string(kFixed) + ", 50000 a");
    Favorite("b", "http://b/");
    EXPECT_EQ(Opened(u"bndFavorites"), std::string(kFixed) + ", 50000 a");
    m_bar.Find(u"mnuAddToFavorites")->Enabled = true;
    m_desk.Click(u"mnuAddToFavorites");
    EXPECT_EQ(Opened(u"bndFavorites"), std::string(kFixed) + ", 50001 a, 50002 b");
}

TEST_F(RuntimeMenusTest, AtTheEndThePictureOfGroupsAloneIsKept_Deliberate) {
    FavoriteFolder("news");
    Favorite("a", "http://a/");
    Group("g");
    Opened(u"bndFavorites");
    EXPECT_EQ(Entry(u"bndFavorites", 2).Image, m_bar.Find(u"mnuFolderImage")->Image);
    EXPECT_EQ(Entry(u"bndFavorites", 3).Image, m_bar.Find(u"mnuLinkImage")->Image);
    m_desk.Unload();
    m_desk.ChangeFolderOf(u"bndFavorites");
    Opened(u"bndFavorites");
    EXPECT_EQ(Entry(u"bndFavorites", 2).Image, Picture());
    EXPECT_EQ(Entry(u"bndFavorites", 3).Image, Picture());
    Opened(u"bndTessaGroupsMenu");
    EXPECT_EQ(Entry(u"bndTessaGroupsMenu", 3).Image, m_bar.Find(u"mnuTessaGroupsImage")->Image);
}

TEST_F(RuntimeMenusTest, ThePicturesAreThoseOfTheLoadedLayout) {
    FavoriteFolder("news");
    m_bar.Find(u"mnuFolderImage")->Image = {u"other"};
    Opened(u"bndFavorites");
    EXPECT_EQ(Entry(u"bndFavorites", 2).Image, (Picture{u"folder"})) << "kept at the start";
}

TEST_F(RuntimeMenusTest, OrganizingFavoritesMakesThemStale) {
    Opened(u"bndFavorites");
    m_desk.inOrganizeFavorites = [this](frmOrganizeFavorites&) { Favorite("new", "http://n/"); };
    m_bar.Find(u"mnuOrganizeFavorites")->Enabled = true;
    m_desk.Click(u"mnuOrganizeFavorites");
    EXPECT_EQ(Opened(u"bndFavorites"), std::string(kFixed) + ", 50000 new");
}

TEST_F(RuntimeMenusTest, AFolderIsFilledWhenItFirstOpensAndKeptUntilTheNextRebuild) {
    FavoriteFolder("news/deep");
    Favorite("news/a", "http://a/");
    Opened(u"bndFavorites");
    EXPECT_EQ(OpenedFolder("news/deep"), "(no band)");
    EXPECT_EQ(OpenedFolder("news"), "-1 deep, 50000 a");
    Favorite("news/b", "http://b/");
    EXPECT_EQ(OpenedFolder("news"), "-1 deep, 50000 a");
    Favorite("news/deep/c", "http://c/");
    EXPECT_EQ(OpenedFolder("news/deep"), "50001 c");
    m_desk.ChangeFolderOf(u"bndFavorites");
    Opened(u"bndFavorites");
    EXPECT_EQ(OpenedFolder("news/deep"), "(no band)");
    EXPECT_EQ(OpenedFolder("news"), "-1 deep, 50002 a, 50003 b");
}

TEST_F(RuntimeMenusTest, AFavoriteAndAGroupOpenByTheDispatcher) {
    Favorite("a", "http://a/");
    Group("g");
    Opened(u"bndFavorites");
    Opened(u"bndTessaGroupsMenu");
    m_bar.UserClick(Entry(u"bndFavorites", 2));
    EXPECT_EQ(m_desk.views.Calls(1), "go http://a/");
    m_bar.UserClick(Entry(u"bndTessaGroupsMenu", 3));
    EXPECT_EQ(m_desk.Strip(), "1 [2*]");
    EXPECT_EQ(m_desk.views.Calls(2), "go about:blank, go http://1/");
}

TEST_F(RuntimeMenusTest, AClickOnAFolderDoesNothing) {
    FavoriteFolder("news");
    Opened(u"bndFavorites");
    m_bar.UserClick(Entry(u"bndFavorites", 2));
    EXPECT_EQ(m_desk.Strip(), "[1*]");
    EXPECT_EQ(m_desk.views.Calls(1), "");
}

TEST_F(RuntimeMenusTest, AFolderPopsUpWhatToDoWithItsPages) {
    FavoriteFolder("news");
    Favorite("news/a", "http://a/");
    Favorite("news/b", "http://b/");
    Opened(u"bndFavorites");
    EXPECT_EQ(PopupOf(Entry(u"bndFavorites", 2)), "xtrFolderOpen xtrFolderOpenBelow xtrFolderSave");
    m_desk.Click(u"xtrFolderOpen");
    EXPECT_EQ(m_desk.Strip(), "1 2 [3*]");
    m_desk.files.chosen = m_groups.PathText("news.tvg");
    m_desk.Click(u"xtrFolderSave");
    EXPECT_EQ(m_desk.files.last.FileName, u"news.tvg");
    EXPECT_EQ(m_desk.Said(), "The TessaGroup has been saved.");
    EXPECT_EQ(m_groups.Read("news.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n");
}

TEST_F(RuntimeMenusTest, AFolderOpensWithWhatLiesBelowItWhenAskedSo) {
    FavoriteFolder("news/far/far");
    FavoriteFolder("news/empty");
    Favorite("news/a", "http://a/");
    Favorite("news/far/b", "http://b/");
    Favorite("news/far/far/c", "http://c/");
    Favorite("news/far/script", "javascript:c");
    Favorite("other", "http://other/");
    if (!kOtherPlatform) fs::create_directory_symlink("..", m_favorites.Path("news/far/back"));
    Opened(u"bndFavorites");
    PopupOf(Entry(u"bndFavorites", 2));
    m_desk.Click(u"xtrFolderOpenBelow");
    EXPECT_EQ(m_desk.Strip(), "1 2 3 [4*]");
    EXPECT_EQ(m_desk.views.Calls(2) + "; " + m_desk.views.Calls(3) + "; " + m_desk.views.Calls(4),
              "go about:blank, go http://a/; go about:blank, go http://b/; go about:blank, go http://c/");
    EXPECT_EQ(m_desk.Said(), "Favorites that do not lead to the web were not opened.");
}

TEST_F(RuntimeMenusTest, AMiddleClickOnAFolderOpensItsPages) {
    FavoriteFolder("news");
    Favorite("news/a", "http://a/");
    Opened(u"bndFavorites");
    const auto effect = m_desk.MiddleClick(Entry(u"bndFavorites", 2));
    ASSERT_TRUE(effect);
    effect();
    EXPECT_EQ(m_desk.views.Calls(2), "go about:blank, go http://a/");
    EXPECT_FALSE(m_desk.MiddleClick(Entry(u"bndFavorites", 0)));
}

TEST_F(RuntimeMenusTest, AnEmptyFolderHasNothingToOpenOrSaveAndItSaysSo) {
    FavoriteFolder("news");
    Opened(u"bndFavorites");
    PopupOf(Entry(u"bndFavorites", 2));
    for (const TextView tool : {u"xtrFolderOpen", u"xtrFolderOpenBelow", u"xtrFolderSave"}) {
        m_desk.EmptyStatus();
        m_desk.files.chosen = m_groups.PathText("news.tvg");
        m_desk.Click(tool);
        EXPECT_EQ(m_desk.Said(), "There are no pages in that folder.");
    }
    EXPECT_EQ(m_groups.Files(), 0U);
}

TEST_F(RuntimeMenusTest, ALinkPopsUpToOpenInANewTab) {
    Favorite("a", "http://a/");
    Favorite("b", "javascript:b");
    Opened(u"bndFavorites");
    EXPECT_EQ(PopupOf(Entry(u"bndFavorites", 2)), "xtrLinkNewTab");
    m_desk.Click(u"xtrLinkNewTab");
    EXPECT_EQ(m_desk.views.Calls(2), "go about:blank, go http://a/");
    PopupOf(Entry(u"bndFavorites", 3));
    m_desk.Click(u"xtrLinkNewTab");
    EXPECT_EQ(m_desk.Strip(), "1 [2*]") << "a script is not opened there either";
}

TEST_F(RuntimeMenusTest, AGroupPopsUpToBeOpenedOrOrganized) {
    Group("g");
    Opened(u"bndTessaGroupsMenu");
    EXPECT_EQ(PopupOf(Entry(u"bndTessaGroupsMenu", 3)),
              "xtrGroupOpen xtrGroupOrganize xtrGroupCheck xtrGroupPagesPdf xtrGroupPagesPrint xtrGroupPagesOffline "
              "xtrGroupRename xtrGroupDelete");
    m_desk.Click(u"xtrGroupOpen");
    EXPECT_EQ(m_desk.views.Calls(2), "go about:blank, go http://1/");
    Text edited;
    m_desk.inTessaGroup = [&](frmTessaGroup& form) { edited = form.lblTessaGroupName.Caption(); };
    m_desk.Click(u"xtrGroupOrganize");
    EXPECT_EQ(edited, u"g.tvg");
}

TEST_F(RuntimeMenusTest, ThePagesOfAGroupAreWrittenWhileItStaysClosed) {
    Group("g");
    Opened(u"bndTessaGroupsMenu");
    PopupOf(Entry(u"bndTessaGroupsMenu", 3));
    std::string wrote;
    m_desk.main.Groups().Write.ConnectForLife([&](const GroupCommands::Writing& writing) {
        wrote += std::to_string(static_cast<int>(writing.what)) + " " + ToUtf8(writing.path) + " of " +
                 (writing.group == m_groups.PathText("g.tvg") ? "g" : ToUtf8(writing.group)) + ", ";
        writing.ended({}, {});
    });
    for (const TextView tool : {u"xtrGroupPagesPdf", u"xtrGroupPagesOffline"}) m_desk.Click(tool);
    EXPECT_EQ(wrote, "") << "no file was chosen";
    m_desk.Click(u"xtrGroupPagesPdf");
    EXPECT_EQ(m_desk.files.last.FileName, u"g.pdf");
    m_desk.files.chosen = u"/x/all";
    m_desk.Click(u"xtrGroupPagesPdf");
    EXPECT_EQ(m_desk.Said(), "all.pdf has been saved.");
    m_desk.files.chosen = u"/x/day.tvg";
    m_desk.Click(u"xtrGroupPagesOffline");
    m_desk.Click(u"xtrGroupPagesPrint");
    EXPECT_EQ(wrote, "0 /x/all.pdf of g, 1 /x/day.tvg of g, 2  of g, ");
    EXPECT_EQ(m_desk.Strip(), "[1*]");
}

TEST_F(RuntimeMenusTest, APdfTakesNoFilesPlaceUnasked) {
    std::string wrote;
    m_desk.main.Groups().Write.ConnectForLife(
        [&](const GroupCommands::Writing& writing) { wrote += ToUtf8(writing.path.substr(writing.path.size() - 7)); });
    m_groups.Write("old.pdf", "%PDF");
    for (const char* name : {"old", "old.pdf"}) {
        m_desk.files.chosen = m_groups.PathText(name);
        m_desk.Click(u"xtrGroupPdf");
        EXPECT_EQ(m_desk.files.last.FileName, u"All pages.pdf");
        EXPECT_EQ(m_desk.messages.Buttons(), "&Cancel|&Replace It");
        EXPECT_EQ(wrote, "") << name;
    }
    m_desk.messages.answer = Answer::Yes;
    m_desk.Click(u"xtrGroupPdf");
    EXPECT_EQ(wrote, "old.pdf");
}

TEST_F(RuntimeMenusTest, AGroupGoesToTheTrashOnceTheUserAgrees) {
    for (const char* name : {"a", "b"}) Group(name);
    m_desk.trash.take = [](TextView path) { return TessaGroups::Delete(path); };
    Opened(u"bndTessaGroupsMenu");
    PopupOf(Entry(u"bndTessaGroupsMenu", 3));
    m_desk.Click(u"xtrGroupDelete");
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"), std::string(kFixedGroups) + ", | 150000 a, 150001 b") << "cancelled";
    m_desk.messages.answer = Answer::Yes;
    m_desk.Click(u"xtrGroupDelete");
    EXPECT_EQ(m_desk.messages.asked.back(), u"Move the TessaGroup \"a\" to the trash?");
    EXPECT_EQ(m_desk.messages.asked.size(), 2U);
    EXPECT_EQ(m_desk.messages.Buttons(), "&Keep It|&Move to Trash");
    EXPECT_EQ(m_desk.Said(), "The TessaGroup a is in the trash.");
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"), std::string(kFixedGroups) + ", | 150002 b");
}

TEST_F(RuntimeMenusTest, AGroupGetsAnotherNameFromItsPopup) {
    for (const char* name : {"a", "b"}) Group(name);
    Opened(u"bndTessaGroupsMenu");
    PopupOf(Entry(u"bndTessaGroupsMenu", 3));
    m_desk.inRenameGroup = [](frmRenameGroup& form) { form.cmdCancel.Click(); };
    m_desk.Click(u"xtrGroupRename");
    EXPECT_EQ(m_desk.Status(), "");
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"), std::string(kFixedGroups) + ", | 150000 a, 150001 b") << "cancelled";
    m_desk.inRenameGroup = [](frmRenameGroup& form) {
        form.txtName.Value = u"c";
        form.cmdOK.Click();
    };
    m_desk.Click(u"xtrGroupRename");
    EXPECT_EQ(m_desk.Said(), "The TessaGroup a is now called c.");
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"), std::string(kFixedGroups) + ", | 150002 b, 150003 c");
}

TEST_F(RuntimeMenusTest, TheFoldersAreWatchedForOthersToo) {
    int changes = 0;
    m_desk.main.Menus().FoldersChanged.ConnectForLife([&] { ++changes; });
    m_desk.main.Menus().WatchFolders();
    EXPECT_TRUE(m_desk.folderWatch.watched.contains(m_desk.groupFolder));
    EXPECT_TRUE(m_desk.folderWatch.watched.contains(m_desk.favoritesFolder));
    m_desk.OpenMenu(u"bndTessaGroupsMenu");
    m_desk.ChangeFolderOf(u"bndTessaGroupsMenu");
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(m_desk.Renews(u"bndTessaGroupsMenu"));
}

TEST_F(RuntimeMenusTest, WithoutATrashAGroupIsDeletedForGoodOnceTheUserAgreesToThat) {
    Group("a");
    Opened(u"bndTessaGroupsMenu");
    PopupOf(Entry(u"bndTessaGroupsMenu", 3));
    m_desk.messages.answer = Answer::Yes;
    m_desk.messages.whileOpen = [this] {
        if (m_desk.messages.asked.size() == 2) m_desk.messages.answer = Answer::No;
    };
    m_desk.Click(u"xtrGroupDelete");
    EXPECT_EQ(m_desk.Said(), "The TessaGroup a was not deleted.");
    EXPECT_EQ(m_groups.Files(), 1U);
    m_desk.messages.answer = Answer::Yes;
    m_desk.Click(u"xtrGroupDelete");
    EXPECT_EQ(m_desk.messages.asked.back(),
              u"The TessaGroup cannot be moved to the trash\nDeleted, it cannot be brought back.");
    EXPECT_EQ(m_desk.Said(), "The TessaGroup a has been deleted.");
    EXPECT_EQ(m_groups.Files(), 0U);
}

TEST_F(RuntimeMenusTest, AGroupThatIsGoneAlreadyIsNoTrouble) {
    Group("a");
    Opened(u"bndTessaGroupsMenu");
    PopupOf(Entry(u"bndTessaGroupsMenu", 3));
    m_desk.messages.answer = Answer::Yes;
    m_desk.messages.whileOpen = [this] { EXPECT_EQ(TessaGroups::Delete(m_groups.PathText("a.tvg")), Outcome::Done); };
    m_desk.Click(u"xtrGroupDelete");
    EXPECT_EQ(m_desk.messages.asked.size(), 1U);
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"), kFixedGroups);
}

TEST_F(RuntimeMenusTest, TheDeleteKeyIsForGroupsAlone) {
    Favorite("a", "http://a/");
    Group("g");
    Opened(u"bndFavorites");
    Opened(u"bndTessaGroupsMenu");
    EXPECT_FALSE(m_desk.Delete(Entry(u"bndFavorites", 2)));
    EXPECT_FALSE(m_desk.Delete(Entry(u"bndTessaGroupsMenu", 0)));
    const auto effect = m_desk.Delete(Entry(u"bndTessaGroupsMenu", 3));
    ASSERT_TRUE(effect);
    m_desk.messages.answer = Answer::Yes;
    effect();
    EXPECT_EQ(m_desk.messages.asked.front(), u"Move the TessaGroup \"g\" to the trash?");
}

TEST_F(RuntimeMenusTest, AGroupWhoseNameIsNoTextIsOpenedOrganizedAndDeletedByItsBytes) {
    if (kOtherPlatform) GTEST_SKIP() << "names are no bytes";
    Group("b\xFC");
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"), std::string(kFixedGroups) + ", | 150000 b\xEF\xBF\xBD");
    m_bar.UserClick(Entry(u"bndTessaGroupsMenu", 3));
    EXPECT_EQ(m_desk.views.Calls(2), "go about:blank, go http://1/");
    PopupOf(Entry(u"bndTessaGroupsMenu", 3));
    m_desk.inTessaGroup = [&](frmTessaGroup& form) {
        EXPECT_EQ(form.lblTessaGroupName.Caption(), u"b\uFFFD.tvg");
        form.cmdOK.Click();
    };
    m_desk.Click(u"xtrGroupOrganize");
    EXPECT_EQ(m_groups.Read("b\xFC.tvg"), "[TessaGroup]\r\nurl0=http://1/\r\n");
    m_desk.messages.answer = Answer::Yes;
    m_desk.Click(u"xtrGroupDelete");
    EXPECT_EQ(m_desk.messages.asked.front(), u"Move the TessaGroup \"b\uFFFD\" to the trash?");
    EXPECT_EQ(m_groups.Files(), 0U);
}

TEST_F(RuntimeMenusTest, AFolderOfFavoritesWhoseNameIsNoTextOpensByItsBytes) {
    if (kOtherPlatform) GTEST_SKIP() << "names are no bytes";
    FavoriteFolder("w\xF6rk");
    Favorite("w\xF6rk/a", "http://a/");
    EXPECT_EQ(Opened(u"bndFavorites"), std::string(kFixed) + ", | -1 w\xEF\xBF\xBDrk");
    EXPECT_EQ(Opened(Entry(u"bndFavorites", 2).SubBand), "50000 a");
}

TEST_F(RuntimeMenusTest, TheHelpOfAnEntryMarksWhatIsNoTextInItsPath) {
    if (kOtherPlatform) GTEST_SKIP() << "names are no bytes";
    Group("b\xFC");
    Opened(u"bndTessaGroupsMenu");
    m_bar.MouseOver(&Entry(u"bndTessaGroupsMenu", 3));
    EXPECT_EQ(m_desk.Status(), m_groups.Path("b\xEF\xBF\xBD.tvg"));
}

TEST_F(RuntimeMenusTest, OtherEntriesPopUpNothing) {
    EXPECT_EQ(PopupOf(*m_bar.Find(u"mnuAddToFavorites")), "");
    EXPECT_EQ(PopupOf(*m_bar.Find(u"mnuFile")), "");
    EXPECT_EQ(PopupOf(Tool(100000, u"http://a/")), "") << "of no kind";
}

TEST_F(RuntimeMenusTest, AShortcutNamedLikeAShopLinkIsOne_Deliberate) {
    Favorite("a", "shpBooks");
    Opened(u"bndFavorites");
    m_bar.UserClick(Entry(u"bndFavorites", 2));
    EXPECT_EQ(m_desk.views.Calls(1), "go https://ads.tessaview.example/ad.asp?id=shpBooks");
}

TEST_F(RuntimeMenusTest, GroupsStandBehindTheFixedEntriesWithASeparatorBeforeTheFirst) {
    if (kOtherPlatform) GTEST_SKIP() << "names that differ in case alone are one";
    for (const char* name : {"beta", "Alpha", "alpha"}) Group(name);
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"), std::string(kFixedGroups) + ", | 150000 Alpha, 150001 alpha, 150002 beta");
    EXPECT_EQ(Entry(u"bndTessaGroupsMenu", 3).Name(), u"zzxAlpha");
    EXPECT_EQ(Entry(u"bndTessaGroupsMenu", 3).Description, m_groups.PathText("Alpha.tvg"));
    EXPECT_EQ(Entry(u"bndTessaGroupsMenu", 3).Image.Name, m_bar.Find(u"mnuTessaGroupsImage")->Image.Name);
    EXPECT_FALSE(m_desk.Renews(u"bndTessaGroupsMenu"));
    Group("new");
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"), std::string(kFixedGroups) + ", | 150000 Alpha, 150001 alpha, 150002 beta");
    m_desk.ChangeFolderOf(u"bndTessaGroupsMenu");
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"),
              std::string(kFixedGroups) + ", | 150003 Alpha, 150004 alpha, 150005 beta, 150006 new");
}

TEST_F(RuntimeMenusTest, NoNumberLeavesItsRangeHoweverOftenABigFolderIsRebuilt) {
    constexpr int kMany = 10'000;
    for (int i = 0; i < kMany; ++i) m_favorites.Write(std::to_string(i) + ".url", "");
    FavoriteFolder("deep");
    Favorite("deep/a", "http://a/");
    for (int round = 0; round < 7; ++round) {
        m_desk.ChangeFolderOf(u"bndFavorites");
        m_bar.OpenBand(*m_bar.FindBand(u"bndFavorites"));
        std::set<std::int32_t> ids;
        for (const BandEntry& entry : m_bar.FindBand(u"bndFavorites")->Entries()) ids.insert(entry.Item->Id());
        ids.erase(ids.begin(), ids.lower_bound(1000)); // those of the two commands and the folder
        ASSERT_EQ(ids.size(), std::size_t{kMany}) << "each once, in round " << round;
        OpenedFolder("deep");
        EXPECT_TRUE(ids.insert(Entry(u"zzz" + m_favorites.PathText("deep"), 0).Id()).second);
        EXPECT_GE(*ids.begin(), 50000);
        EXPECT_LE(*ids.rbegin(), 99999);
        m_bar.UserClick(Entry(u"zzz" + m_favorites.PathText("deep"), 0));
        EXPECT_EQ(m_desk.views.Calls(1), "go http://a/") << "in round " << round;
    }
}

TEST_F(RuntimeMenusTest, AGroupWithTheLastNumberIsAGroupAndTheNextHasTheFirst) {
    for (const char* name : {"a", "b", "c"}) Group(name);
    for (int i = 0; i < 16'666; ++i) {
        m_desk.ChangeFolderOf(u"bndTessaGroupsMenu");
        m_bar.OpenBand(*m_bar.FindBand(u"bndTessaGroupsMenu"));
    }
    m_desk.ChangeFolderOf(u"bndTessaGroupsMenu");
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"), std::string(kFixedGroups) + ", | 199998 a, 199999 b, 150000 c");
    for (int i = 0; i < 3; ++i) {
        m_bar.UserClick(Entry(u"bndTessaGroupsMenu", 3U + static_cast<std::size_t>(i)));
        EXPECT_EQ(m_desk.views.Calls(2 + i), "go about:blank, go http://1/");
    }
}

TEST_F(RuntimeMenusTest, AChangeOnDiskMakesTheMenuThatShowsItStale) {
    FavoriteFolder("news");
    Opened(u"bndFavorites");
    Opened(u"bndTessaGroupsMenu");
    OpenedFolder("news");
    auto& watch = m_desk.folderWatch;
    EXPECT_EQ(watch.watched, (std::set<Text>{Path(m_favorites), m_favorites.PathText("news"), m_groups.PathText("")}));
    watch.Changed(m_groups.PathText(""));
    EXPECT_TRUE(m_desk.Renews(u"bndTessaGroupsMenu"));
    EXPECT_FALSE(m_desk.Renews(u"bndFavorites"));
    watch.Changed(m_favorites.PathText("news"));
    EXPECT_TRUE(m_desk.Renews(u"bndFavorites"));
    Opened(u"bndFavorites");
    EXPECT_EQ(watch.watched, (std::set<Text>{Path(m_favorites), m_groups.PathText("")}));
}

TEST_F(RuntimeMenusTest, NothingIsReadBeforeAMenuOpens) {
    EXPECT_TRUE(m_desk.folderWatch.watched.empty());
    EXPECT_TRUE(m_desk.Renews(u"bndFavorites"));
    EXPECT_TRUE(m_desk.Renews(u"bndTessaGroupsMenu"));
}

TEST_F(RuntimeMenusTest, TheFontMenuChecksThePagesSizeWithoutChangingIt) {
    const std::vector<std::pair<int, TextView>> sizes{{4, u"mnuFontLargest"},
                                                      {2, u"mnuFontMedium"},
                                                      {1, u"mnuFontSmaller"},
                                                      {0, u"mnuFontSmallest"},
                                                      {9, u"mnuFontMedium"}};
    for (const auto& [level, checked] : sizes) {
        m_desk.views.At(1).zoom = level;
        Opened(u"bndFont");
        for (const BandEntry& entry : m_bar.FindBand(u"bndFont")->Entries())
            EXPECT_EQ(entry.Item->Checked(), entry.Item->Name() == checked) << level;
    }
    EXPECT_EQ(m_desk.views.Calls(1), "");
}

TEST_F(RuntimeMenusTest, TheFontMenuAsksTheViewForItsSizeOfABlankPageToo) {
    m_desk.views.At(1).hasDocument = false;
    m_desk.views.At(1).zoom = 4;
    Opened(u"bndFont");
    EXPECT_TRUE(m_bar.Find(u"mnuFontLargest")->Checked());
    EXPECT_FALSE(m_bar.Find(u"mnuFontMedium")->Checked());
}

TEST_F(RuntimeMenusTest, AtLevelThreeTheFontMenuChecksNothing_Deliberate) {
    m_bar.Find(u"mnuFontSmallest")->Checked = true;
    m_desk.views.At(1).zoom = 3;
    Opened(u"bndFont");
    for (const BandEntry& entry : m_bar.FindBand(u"bndFont")->Entries())
        EXPECT_FALSE(entry.Item->Checked()) << ToUtf8(entry.Item->Name());
    EXPECT_EQ(m_desk.views.Calls(1), "");
}

TEST_F(RuntimeMenusTest, WithoutAViewTheFontMenuChecksTheSmallestSize_Deliberate) {
    m_desk.TabAt(1).Tag = 99;
    Opened(u"bndFont");
    EXPECT_TRUE(m_bar.Find(u"mnuFontSmallest")->Checked());
    EXPECT_FALSE(m_bar.Find(u"mnuFontMedium")->Checked());
}

TEST_F(RuntimeMenusTest, AnEmptyBandIsFilledOnlyWhenItIsThatOfAFolder) {
    Favorite("a", "http://a/");
    for (const BandSource& source :
         {BandSource(MadeFrom::Design{}), BandSource(MadeFrom::User{}), BandSource(MadeFrom::Page{})}) {
        const Text name = u"zzz" + Path(m_favorites);
        m_bar.AddBand(name, u"", BandKind::Menu, source);
        EXPECT_EQ(Opened(name), "") << source.index();
        m_bar.RemoveBand(name);
    }
    m_bar.AddBand(u"x", u"", BandKind::Menu, MadeFrom::FavoriteFolder{Path(m_favorites)});
    EXPECT_EQ(Opened(u"x"), "50000 a");
    m_bar.AddBand(u"y", u"", BandKind::Menu, MadeFrom::FavoriteFolder{});
    EXPECT_EQ(Opened(u"y"), "");
}

TEST_F(RuntimeMenusTest, MissingFoldersLeaveTheFixedEntries) {
    fs::remove(m_favorites.PathText("").c_str());
    fs::remove(m_groups.PathText("").c_str());
    EXPECT_EQ(Opened(u"bndFavorites"), kFixed);
    EXPECT_EQ(Opened(u"bndTessaGroupsMenu"), kFixedGroups);
}

} // namespace

} // namespace tessa
