// Tests: BandRules
#include "commands/Customization.h"

#include "bar/CommandBarLayout.h"
#include "commands/DesignTimeBar.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

/// A user who arranges a bar that is as designed.
struct Arranging {
    Arranging() {
        DesignTimeBar::Make(bar);
        custom.Changed.ConnectForLife([this] { ++changes; });
    }
    [[nodiscard]] Band& At(TextView name) const { return *bar.FindBand(name); }
    /// The tools of a band, "|" before those that begin a group.
    [[nodiscard]] std::string Tools(TextView name) const {
        std::string all;
        for (const BandEntry& entry : At(name).Entries())
            all += (all.empty() ? "" : " ") + std::string(entry.Group == BeginGroup::Yes ? "|" : "") +
                   ToUtf8(entry.Item->Name());
        return all;
    }
    void Add(TextView band, std::size_t place, TextView tool) { custom.Add(At(band), place, bar.Share(tool)); }

    CommandBar bar;
    Customization custom{bar};
    int changes = 0;
};

std::string Titles(const std::vector<Band*>& bands, const Customization& custom) {
    std::string all;
    for (const Band* band : bands) all += (all.empty() ? "" : ", ") + ToUtf8(custom.TitleOf(*band));
    return all;
}

TEST(Customization, TheToolbarsAreTheMenuBarAndAllThatTheUserCanShow) {
    Arranging user;
    EXPECT_EQ(Titles(user.custom.Toolbars(), user.custom).substr(0, 70),
              "Menu Bar, Toolbar: File, Toolbar: Go, Toolbar: Address, Toolbar: Searc");
    user.custom.Show(user.At(u"bndGo"), false);
    EXPECT_FALSE(user.At(u"bndGo").Visible());
    user.custom.Show(user.At(u"bndGo"), true);
    EXPECT_TRUE(user.At(u"bndGo").Visible());
    EXPECT_FALSE(Customization::MayHide(user.At(u"bndMenu")));
    user.custom.Show(user.At(u"bndMenu"), false);
    EXPECT_TRUE(user.At(u"bndMenu").Visible()) << "it is the way back";
    EXPECT_EQ(user.changes, 3);
}

TEST(Customization, ANewToolbarIsEmptyVisibleAndInARowOfItsOwn) {
    Arranging user;
    const Band* made = user.custom.New(u"  Reading\n ");
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(ToUtf8(made->Caption()), "Reading");
    EXPECT_TRUE(made->IsUserMade() && made->Visible() && made->Entries().empty());
    for (const Band* other : user.custom.Toolbars()) EXPECT_TRUE(other == made || other->Dock().Row < made->Dock().Row);
    EXPECT_FALSE(made->IsRunTime()) << "it is kept at the end of the run";
    EXPECT_TRUE(TextView(made->Name()).starts_with(u"gui")) << "a layout file brings it back";
    EXPECT_EQ(user.custom.Toolbars().back(), made);
}

TEST(Customization, AToolbarNeedsANameOfItsOwn) {
    Arranging user;
    EXPECT_EQ(user.custom.New(u"   "), nullptr);
    EXPECT_EQ(user.custom.New(u"Go"), nullptr);
    EXPECT_EQ(user.changes, 0);
    EXPECT_EQ(ToUtf8(user.custom.Refusal(u"")), "Type a name for the toolbar.");
    EXPECT_EQ(ToUtf8(user.custom.Refusal(u" Go")), "There is a toolbar of that name already.");
    EXPECT_EQ(ToUtf8(user.custom.Refusal(u"Gone")), "");
    const Band* made = user.custom.New(u"Mine");
    EXPECT_EQ(ToUtf8(user.custom.Refusal(u"Mine", made)), "") << "it may keep its name";
}

TEST(Customization, AHundredthToolbarIsNotMade) {
    Arranging user;
    for (int i = 1; i <= 99; ++i) ASSERT_NE(user.custom.New(u"n" + Decimal(i)), nullptr);
    EXPECT_EQ(user.custom.New(u"n100"), nullptr);
}

TEST(Customization, OnlyToolbarsOfTheUsersAreRenamedAndDeleted) {
    Arranging user;
    Band* made = user.custom.New(u"Mine");
    user.custom.Rename(*made, u"Yours");
    EXPECT_EQ(ToUtf8(made->Caption()), "Yours");
    user.custom.Rename(*made, u"Go");
    EXPECT_EQ(ToUtf8(made->Caption()), "Yours");
    user.custom.Rename(user.At(u"bndGo"), u"Mine");
    EXPECT_EQ(ToUtf8(user.At(u"bndGo").Caption()), "Go");
    user.custom.Delete(user.At(u"bndGo"));
    EXPECT_NE(user.bar.FindBand(u"bndGo"), nullptr);
    user.custom.Delete(*made);
    EXPECT_EQ(user.bar.FindBand(u"gui1"), nullptr);
    EXPECT_NE(user.custom.New(u"Again"), nullptr);
}

TEST(Customization, CategoriesComeInTheOrderInWhichTheyAreFirstSeen) {
    const Arranging user;
    std::string all;
    for (const Text& category : user.custom.Categories()) all += ToUtf8(category) + " ";
    EXPECT_EQ(all.substr(0, 25), "Menu File Edit View Go Fa");
    EXPECT_EQ(std::count(all.begin(), all.end(), ' '), static_cast<std::ptrdiff_t>(user.custom.Categories().size()));
    for (const Text& category : user.custom.Categories()) EXPECT_FALSE(user.custom.Commands(category).empty());
    EXPECT_TRUE(user.custom.Commands(u"").empty()) << "the holders of pictures are not offered";
    EXPECT_TRUE(user.custom.Commands(u"file").empty());
}

TEST(Customization, ACategoryOffersItsCommandsOnce) {
    const Arranging user;
    std::string fonts;
    for (const auto& tool : user.custom.Commands(u"Font")) fonts += ToUtf8(tool->Name()) + " ";
    EXPECT_EQ(fonts, "mnuFont mnuFontLargest mnuFontMedium mnuFontSmaller mnuFontSmallest mnuFontLarger ")
        << "the one that a command answers to stands for the one that has none";
    EXPECT_EQ(user.custom.Commands(u"Edit").size(), 5u);
    EXPECT_EQ(ToUtf8(Customization::TitleOf(*user.bar.Find(u"shpHomesLoans"))), "Homes & Loans");
    EXPECT_EQ(ToUtf8(Customization::TitleOf(*user.bar.Find(u"cboSearch"))), "Search (box)");
    EXPECT_EQ(ToUtf8(Customization::TitleOf(*user.bar.Find(u"mnuAddress"))), "Address (label)");
}

TEST(Customization, MenusThatAreBuiltAtRunTimeAreNotArranged) {
    Arranging user;
    const std::string titles = Titles(user.custom.Bands(), user.custom);
    EXPECT_EQ(titles.find("Menu: Favorites"), std::string::npos);
    EXPECT_EQ(titles.find("Menu: TessaGroups"), std::string::npos);
    EXPECT_NE(titles.find("Menu: New, "), std::string::npos) << "named after the tool that opens it";
    EXPECT_NE(titles.find("Pop-up menu: Tab Popup"), std::string::npos);
    user.Add(u"bndFavorites", 0, u"mnuCut");
    user.custom.Remove(user.At(u"bndFavorites"), 0);
    user.custom.Move(user.At(u"bndFavorites"), 0, user.At(u"bndGo"), 0);
    user.custom.ToggleGroup(user.At(u"bndFavorites"), 0);
    EXPECT_EQ(user.Tools(u"bndFavorites"), "mnuAddToFavorites mnuOrganizeFavorites");
    user.bar.AddBand(u"zzz/favorites", u"Folder", BandKind::Menu, MadeFrom::FavoriteFolder{u"/favorites"});
    EXPECT_EQ(Titles(user.custom.Bands(), user.custom), titles);
    auto link = std::make_shared<Tool>(MadeFrom::FavoriteLink{u"http://one/"}, 50000, u"http://one/");
    user.custom.Add(user.At(u"bndGo"), 0, link);
    EXPECT_EQ(user.changes, 0);
}

TEST(Customization, ACommandIsAddedBeforeTheEntryAtItsPlace) {
    Arranging user;
    user.Add(u"bndFile", 1, u"mnuCut");
    EXPECT_EQ(user.Tools(u"bndFile"), "tbNew mnuCut mnuOpen mnuClose mnuCloseAll");
    user.Add(u"bndFile", 99, u"mnuCopy");
    EXPECT_EQ(user.Tools(u"bndFile"), "tbNew mnuCut mnuOpen mnuClose mnuCloseAll mnuCopy");
    user.Add(u"bndFile", 0, u"mnuCopy");
    EXPECT_EQ(user.Tools(u"bndFile"), "mnuCopy tbNew mnuCut mnuOpen mnuClose mnuCloseAll") << "once on a band";
    user.custom.Add(user.At(u"bndFile"), 0, nullptr);
    EXPECT_EQ(user.changes, 3);
}

TEST(Customization, ABoxLeavesTheToolbarOnWhichItStands) {
    Arranging user;
    user.Add(u"bndGo", 0, u"cboAddress");
    EXPECT_EQ(user.Tools(u"bndAddress"), "mnuAddress");
    EXPECT_EQ(user.Tools(u"bndGo").substr(0, 10), "cboAddress");
    user.Add(u"bndFileMenu", 0, u"cboAddress");
    user.Add(u"bndMenu", 0, u"mnuAddress");
    EXPECT_EQ(user.Tools(u"bndGo").substr(0, 10), "cboAddress") << "boxes and labels stand on toolbars only";
    EXPECT_EQ(user.At(u"bndMenu").Entries().size(), 10u);
}

TEST(Customization, NoMenuOpensOutOfItself) {
    Arranging user;
    user.Add(u"bndFileMenu", 0, u"mnuFile");
    user.Add(u"bndFileMenu", 0, u"mnuEdit");
    EXPECT_EQ(user.Tools(u"bndFileMenu").substr(0, 8), "mnuEdit ");
    user.Add(u"bndEditMenu", 0, u"mnuFile");
    EXPECT_EQ(user.Tools(u"bndEditMenu").substr(0, 7), "mnuCut ");
}

TEST(Customization, EntriesAreReorderedWithTheirSeparators) {
    Arranging user;
    Band& edit = user.At(u"bndEditMenu");
    ASSERT_EQ(user.Tools(u"bndEditMenu"), "mnuCut mnuCopy mnuPaste |mnuSelectAll |mnuFind");
    user.custom.MoveDown(edit, 0);
    EXPECT_EQ(user.Tools(u"bndEditMenu"), "mnuCopy mnuCut mnuPaste |mnuSelectAll |mnuFind");
    user.custom.MoveUp(edit, 4);
    EXPECT_EQ(user.Tools(u"bndEditMenu"), "mnuCopy mnuCut mnuPaste |mnuFind |mnuSelectAll");
    user.custom.Move(edit, 3, edit, 0);
    EXPECT_EQ(user.Tools(u"bndEditMenu"), "|mnuFind mnuCopy mnuCut mnuPaste |mnuSelectAll");
    user.custom.Move(edit, 0, edit, 5);
    EXPECT_EQ(user.Tools(u"bndEditMenu"), "mnuCopy mnuCut mnuPaste |mnuSelectAll |mnuFind");
    const std::string before = user.Tools(u"bndEditMenu");
    user.custom.MoveUp(edit, 0);
    user.custom.MoveDown(edit, 4);
    user.custom.MoveDown(edit, 9);
    user.custom.Move(edit, 9, edit, 0);
    user.custom.Move(edit, 2, edit, 2);
    user.custom.Move(edit, 2, edit, 3);
    EXPECT_EQ(user.Tools(u"bndEditMenu"), before);
}

TEST(Customization, AnEntryMovesToAnotherBandAndLeavesItsSeparatorBehind) {
    Arranging user;
    user.custom.Move(user.At(u"bndFileMenu"), 4, user.At(u"bndGo"), 1);
    EXPECT_EQ(user.Tools(u"bndGo").substr(0, 20), "mnuGoBack mnuOpen mn");
    EXPECT_EQ(user.Tools(u"bndFileMenu").substr(0, 70),
              "mnuNewBlank mnuNewSearch mnuNewHome mnuNewCurrent |mnuClose mnuCloseAl");
    user.custom.Move(user.At(u"bndGo"), 1, user.At(u"bndFile"), 4);
    EXPECT_EQ(user.Tools(u"bndFile"), "tbNew mnuClose mnuCloseAll mnuOpen") << "it stood there already";
    user.custom.Move(user.At(u"bndFile"), 0, user.At(u"bndNew"), 0);
    EXPECT_EQ(user.Tools(u"bndFile"), "tbNew mnuClose mnuCloseAll mnuOpen") << "a menu does not go into itself";
}

TEST(Customization, ARemovedEntryLeavesItsSeparatorToTheNext) {
    Arranging user;
    Band& edit = user.At(u"bndEditMenu");
    user.custom.Remove(edit, 3);
    EXPECT_EQ(user.Tools(u"bndEditMenu"), "mnuCut mnuCopy mnuPaste |mnuFind");
    user.custom.Remove(edit, 3);
    user.custom.Remove(edit, 3);
    EXPECT_EQ(user.Tools(u"bndEditMenu"), "mnuCut mnuCopy mnuPaste");
}

TEST(Customization, ASeparatorIsSetAndTakenAway) {
    Arranging user;
    user.custom.ToggleGroup(user.At(u"bndFile"), 2);
    EXPECT_EQ(user.Tools(u"bndFile"), "tbNew mnuOpen |mnuClose mnuCloseAll");
    user.custom.ToggleGroup(user.At(u"bndFile"), 2);
    user.custom.ToggleGroup(user.At(u"bndFile"), 8);
    EXPECT_EQ(user.Tools(u"bndFile"), "tbNew mnuOpen mnuClose mnuCloseAll");
}

TEST(Customization, ADroppedToolIsAddedMovedOrRemoved) {
    Arranging user;
    const DraggedTool command{user.bar.Share(u"mnuCut")};
    EXPECT_TRUE(user.custom.Accepts(user.At(u"bndFile"), command));
    user.custom.Drop(command, user.At(u"bndFile"), 0);
    EXPECT_EQ(user.Tools(u"bndFile"), "mnuCut tbNew mnuOpen mnuClose mnuCloseAll");
    user.custom.Drop({user.bar.Share(u"mnuCut"), &user.At(u"bndFile"), 0}, user.At(u"bndFile"), 2);
    EXPECT_EQ(user.Tools(u"bndFile"), "tbNew mnuCut mnuOpen mnuClose mnuCloseAll");
    user.custom.DropOff({user.bar.Share(u"mnuCut"), &user.At(u"bndFile"), 1});
    EXPECT_EQ(user.Tools(u"bndFile"), "tbNew mnuOpen mnuClose mnuCloseAll");
    user.custom.DropOff(command);
    EXPECT_EQ(user.changes, 3) << "a command from the list is nowhere yet";
    EXPECT_FALSE(user.custom.Accepts(user.At(u"bndFavorites"), command));
    EXPECT_FALSE(user.custom.Accepts(user.At(u"bndFile"), DraggedTool{}));
    const DraggedTool fixed{user.bar.Share(u"mnuAddToFavorites"), &user.At(u"bndFavorites"), 0};
    EXPECT_FALSE(user.custom.Accepts(user.At(u"bndFile"), fixed)) << "its menu is built at run time";
    user.custom.DropOff(fixed);
    EXPECT_EQ(user.Tools(u"bndFavorites"), "mnuAddToFavorites mnuOrganizeFavorites");
}

TEST(Customization, OneBandIsReset) {
    Arranging user;
    user.Add(u"bndGo", 0, u"cboAddress");
    user.custom.Remove(user.At(u"bndFile"), 0);
    user.At(u"bndAddress").Visible = false;
    user.At(u"bndAddress").Dock = Docking{DockSide::Left, 1, 1, {}, {}};
    user.custom.Reset(user.At(u"bndAddress"));
    EXPECT_EQ(user.Tools(u"bndAddress"), "mnuAddress cboAddress");
    EXPECT_EQ(user.Tools(u"bndGo").substr(0, 9), "mnuGoBack") << "the box has gone home";
    EXPECT_TRUE(user.At(u"bndAddress").Visible());
    EXPECT_EQ(user.At(u"bndAddress").Dock().Side, DockSide::Top);
    EXPECT_EQ(user.Tools(u"bndFile"), "mnuOpen mnuClose mnuCloseAll") << "the others stay";
    Band* made = user.custom.New(u"Mine");
    user.Add(made->Name(), 0, u"mnuCut");
    user.custom.Reset(*made);
    EXPECT_EQ(user.Tools(made->Name()), "mnuCut") << "it has no design";
}

TEST(Customization, EverythingIsReset) {
    Arranging user;
    const std::string designed = CommandBarLayout::Save(user.bar);
    user.custom.New(u"Mine");
    user.Add(u"gui1", 0, u"cboSearch");
    user.Add(u"bndFileMenu", 0, u"mnuEdit");
    user.custom.Remove(user.At(u"bndFont"), 1);
    user.custom.Show(user.At(u"bndGo"), false);
    user.bar.FindCombo(u"cboAddress")->Width = Pixels{17};
    user.custom.SetLook({IconSize::Small, ToolText::TextOnly, false});
    EXPECT_NE(CommandBarLayout::Save(user.bar), designed);
    user.custom.ResetAll();
    EXPECT_EQ(CommandBarLayout::Save(user.bar), designed);
    EXPECT_EQ(user.bar.FindBand(u"gui1"), nullptr);
}

TEST(Customization, TheLookIsTheBars) {
    Arranging user;
    BarLook seen;
    const Connection view = user.bar.Look.Attach([&](const BarLook& look) { seen = look; });
    user.custom.SetLook({IconSize::Large, ToolText::BesideIcons, false});
    EXPECT_EQ(seen, (BarLook{IconSize::Large, ToolText::BesideIcons, false}));
    EXPECT_EQ(user.custom.Look(), seen);
}

} // namespace

} // namespace tessa
