// Tests: BandRules, CommandBarLayoutWords
#include "bar/CommandBarLayout.h"

#include "tests/bar/LayoutCheck.h"

#include <gtest/gtest.h>
#include <random>

namespace tessa {

namespace {

/// A bar as designed.
struct Designed : CommandBar {
    Designed() { DesignTimeBar::Make(*this); }
    explicit Designed(std::string_view bytes) : Designed() { CommandBarLayout::Load(*this, bytes); }
    [[nodiscard]] Band& At(TextView name) const { return *FindBand(name); }
    [[nodiscard]] std::string Saved() const { return CommandBarLayout::Save(*this); }
};

std::string Tools(const Band& band) {
    std::string all;
    for (const BandEntry& entry : band.Entries())
        all += (all.empty() ? "" : " ") + std::string(entry.Group == BeginGroup::Yes ? "|" : "") +
               ToUtf8(entry.Item->Name());
    return all;
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    const auto place = text.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    return place == std::string::npos ? text : text.replace(place, from.size(), to);
}

/// What the file lists for a band, replaced.
std::string WithTools(const std::string& bytes, std::string_view band, std::string_view tools) {
    const auto section = bytes.find("[" + std::string(band) + "]");
    const auto begin = bytes.find("Tools=", section) + 6;
    return bytes.substr(0, begin) + std::string(tools) + bytes.substr(bytes.find("\r\n", begin));
}

TEST(CommandBarLayout, ADesignedBarComesBackAsItWas) {
    const Designed bar;
    EXPECT_EQ(Designed(bar.Saved()).Saved(), bar.Saved());
    EXPECT_EQ(Designed("").Saved(), bar.Saved()) << "without a file";
}

TEST(CommandBarLayout, EverythingThatTheUserArrangedComesBack) {
    Designed bar;
    Band& file = bar.At(u"bndFile");
    file.RemoveAt(1);
    file.Insert(0, bar.Share(u"mnuCut"), BeginGroup::Yes);
    file.Dock = Docking{DockSide::Left, 3, 2, {}, {}};
    bar.At(u"bndGo").Visible = false;
    bar.At(u"bndMisc").Dock = Docking{DockSide::Floating, 0, 0, {-20}, {300}};
    bar.At(u"bndEditMenu").SetGroup(1, BeginGroup::Yes);
    bar.FindCombo(u"cboAddress")->Width = Pixels{333};
    bar.Look = BarLook{IconSize::Large, ToolText::UnderIcons, false};
    Band* own = bar.AddBand(CommandBarLayout::UserBandName(7), u"  My \"b\u00E4r\" [1]; = ", BandKind::Toolbar,
                            MadeFrom::User{});
    own->Append(bar.Share(u"mnuFind"));
    own->Append(bar.ShareOwn(u"bndFont", u"mnuFontLarger"), BeginGroup::Yes);

    const Designed back(bar.Saved());
    EXPECT_EQ(Tools(back.At(u"bndFile")), "|mnuCut tbNew mnuClose mnuCloseAll");
    EXPECT_EQ(back.At(u"bndFile").Dock(), (Docking{DockSide::Left, 3, 2, {}, {}}));
    EXPECT_FALSE(back.At(u"bndGo").Visible());
    EXPECT_EQ(back.At(u"bndMisc").Dock(), (Docking{DockSide::Floating, 0, 0, {-20}, {300}}));
    EXPECT_EQ(Tools(back.At(u"bndEditMenu")), "mnuCut |mnuCopy mnuPaste |mnuSelectAll |mnuFind");
    EXPECT_EQ(back.FindCombo(u"cboAddress")->Width(), Pixels{333});
    EXPECT_EQ(back.Look(), (BarLook{IconSize::Large, ToolText::UnderIcons, false}));
    const Band& made = back.At(u"gui7");
    EXPECT_TRUE(made.IsUserMade());
    EXPECT_EQ(made.Kind(), BandKind::Toolbar);
    EXPECT_EQ(ToUtf8(made.Caption()), "My \"b\u00E4r\" [1]; =");
    EXPECT_EQ(Tools(made), "mnuFind |mnuFontLarger");
    EXPECT_EQ(made.Entries()[1].Item, back.ShareOwn(u"bndFont", u"mnuFontLarger"));
}

// As version 3.2.159 has written it, whatever the bar is made of by now.
TEST(CommandBarLayout, AFileOfAnEarlierVersionIsReadAndItsBandsAreWrittenAgainAsTheyWere) {
    const std::string go = "[bndGo]\r\nKind=Toolbar\r\nCaption=\"Go\"\r\nVisible=0\r\nDock=Top 1 1 0 0\r\n"
                           "Tools=mnuGoBack mnuStop mnuRefresh mnuHome mnuSearch .\r\n";
    const std::string mine = "[gui1]\r\nKind=Toolbar\r\nCaption=\"Reading\"\r\nVisible=1\r\nDock=Left 3 0 0 0\r\n"
                             "Tools=|bndFont/mnuFontLarger bndMenu/mnuHelp mnuHelp .\r\n";
    const std::string widths = "[Widths]\r\ncboSearch=333\r\n";
    const Designed back("[Layout]\r\nKnown=mnuGoBack mnuGoForward mnuStop mnuRefresh mnuHome mnuSearch .\r\n"
                        "[Options]\r\nIconSize=Medium\r\nText=IconsOnly\r\nToolTips=1\r\n" +
                        widths + go + mine);
    EXPECT_EQ(Tools(back.At(u"bndGo")), "mnuGoBack mnuStop mnuRefresh mnuHome mnuSearch");
    EXPECT_TRUE(back.At(u"gui1").IsUserMade());
    EXPECT_EQ(Tools(back.At(u"bndFile")), "tbNew mnuOpen mnuClose mnuCloseAll") << "not in the file";
    for (const std::string& section : {go, mine, widths})
        EXPECT_NE(back.Saved().find(section), std::string::npos) << section << back.Saved();
    // Only what was designed or what the user has made is in the file. Nothing of it is a number.
    EXPECT_EQ(back.Saved().find("zz"), std::string::npos);
}

std::string KeysIn(const CommandBar& bar, TextView tool) {
    std::string all;
    for (const KeyStroke key : bar.Combinations.Of(tool)) all += KeyWords::Word(key) + ";";
    return all;
}

TEST(CommandBarLayout, ChosenKeysComeBackAndNoOthersAreWritten) {
    Designed bar;
    EXPECT_EQ(bar.Saved().find("[Keys]"), std::string::npos);
    bar.Combinations.Choose(u"mnuNewBlank", {{'E', Keys::kCtrl}, {Keys::kPlus, Keys::kCtrl | Keys::kAlt}});
    bar.Combinations.Choose(u"mnuRefresh", {});
    bar.Combinations.Choose(u"mnuFontLarger", {{Keys::kF7, Keys::kCtrl}});
    EXPECT_NE(bar.Saved().find("[Keys]\r\nmnuNewBlank=Ctrl+E Ctrl+Alt+Plus .\r\nmnuRefresh=.\r\n"
                               "mnuFontLarger=Ctrl+F7 .\r\n["),
              std::string::npos)
        << bar.Saved();
    const Designed back(bar.Saved());
    EXPECT_EQ(KeysIn(back, u"mnuNewBlank"), "Ctrl+E;Ctrl+Alt+Plus;");
    EXPECT_EQ(KeysIn(back, u"mnuRefresh"), "") << "what was taken away stays away";
    EXPECT_EQ(KeysIn(back, u"mnuFontLarger"), "Ctrl+F7;");
    EXPECT_EQ(KeysIn(back, u"mnuClose"), "Ctrl+W;");
    EXPECT_EQ(back.Saved(), bar.Saved());
}

TEST(CommandBarLayout, AKeyOfALaterDesignThatTheUserHasChosenBeforeStaysWithTheChoice) {
    const Designed back("[Keys]\r\nmnuSettings=Ctrl+J .\r\n");
    EXPECT_EQ(KeysIn(back, u"mnuSettings"), "Ctrl+J;");
    EXPECT_EQ(KeysIn(back, u"xtrDownloads"), "");
    EXPECT_EQ(back.Saved().find("xtrDownloads="), std::string::npos) << "nobody has taken it away";
}

TEST(CommandBarLayout, ALineOfKeysThatDoesNotParseLeavesTheDesign) {
    for (const char* line : {"", "Ctrl+E", "Ctrl+E Ctrl+", "Ctrl+E Strg+T .", "ctrl+e .", "E .", "Ctrl+C .", "Return .",
                             "Ctrl+E,Ctrl+F .", "Escape .", "\xFF .", "."}) {
        const Designed back("[Keys]\r\nmnuNewBlank=" + std::string(line) +
                            "\r\nmnuNoSuchTool=Ctrl+E .\r\nmnuClose=F7 .\r\n");
        EXPECT_EQ(KeysIn(back, u"mnuNewBlank"), line == std::string(".") ? "" : "Ctrl+T;") << line;
        EXPECT_EQ(KeysIn(back, u"mnuClose"), "F7;") << "the next line is read: " << line;
    }
    const Designed stop("[Keys]\r\nmnuStop=Escape F4 .\r\n");
    EXPECT_EQ(KeysIn(stop, u"mnuStop"), "Escape;F4;") << "it has it by design";
}

TEST(CommandBarLayout, OfTwoLinesWithOneCombinationTheFirstToolHasIt) {
    const Designed back("[Keys]\r\nmnuClose=Ctrl+E .\r\nmnuNewBlank=Ctrl+E Ctrl+E F8 .\r\n");
    EXPECT_EQ(KeysIn(back, u"mnuNewBlank"), "Ctrl+E;F8;");
    EXPECT_EQ(KeysIn(back, u"mnuClose"), "");
    EXPECT_EQ(Designed(back.Saved()).Saved(), back.Saved());
}

TEST(CommandBarLayout, TwoToolsOfOneNameAreNotMixedUp) {
    Designed bar;
    const auto topics = bar.Share(u"mnuHelp");
    bar.At(u"bndMenu").Append(topics);
    const Designed back(bar.Saved());
    const auto& entries = back.At(u"bndMenu").Entries();
    ASSERT_EQ(entries.size(), 11u);
    EXPECT_EQ(entries[9].Item, back.ShareOwn(u"bndMenu", u"mnuHelp"));
    EXPECT_EQ(entries[10].Item, back.Share(u"mnuHelp"));
    EXPECT_EQ(back.At(u"bndHelpMenu").Entries()[0].Item, back.Share(u"mnuHelp"));
}

TEST(CommandBarLayout, WhatWasMadeAtRunTimeIsNotWritten) {
    Designed bar;
    const std::string before = bar.Saved();
    bar.At(u"bndFavorites").Add(MadeFrom::FavoriteLink{u"http://one/"}, 50000, u"http://one/", BeginGroup::Yes);
    bar.At(u"bndFavorites").Add(MadeFrom::FavoriteFolder{u"/favorites/folder"}, -1, u"");
    bar.At(u"bndTessaGroupsMenu").Add(MadeFrom::Group{u"/groups/News.tvg"}, 150000, u"zzxNews");
    bar.At(u"bndGo").Append(std::make_shared<Tool>(MadeFrom::Page{}, 0, u"xtrReplaceWord"));
    bar.AddBand(u"zzz/favorites/folder", u"", BandKind::Menu, MadeFrom::FavoriteFolder{u"/favorites/folder"});
    bar.AddBand(u"zzPageMenu", u"Page", BandKind::Popup, MadeFrom::Page{});
    EXPECT_EQ(bar.Saved(), before);
}

TEST(CommandBarLayout, ABandThatDoesNotParseStaysAsDesignedAndCostsNoOther) {
    Designed bar;
    bar.At(u"bndFile").RemoveAt(0);
    bar.At(u"bndGo").RemoveAt(0);
    const std::string saved = bar.Saved();
    const std::string file = saved.substr(saved.find("[bndFile]"), saved.find("[bndNew]") - saved.find("[bndFile]"));
    const std::string designed = Tools(Designed().At(u"bndFile"));
    for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
             {"Kind=Toolbar", "Kind=Toolba"},
             {"Kind=Toolbar", "Kind=Menu"},
             {"Visible=1", "Visible=maybe"},
             {"Dock=Top", "Dock=Middle"},
             {"Dock=Top 1 0 0 0", "Dock=Top 1 0 0"},
             {"Dock=Top 1 0 0 0", "Dock=Top -1 0 0 0"},
             {"Dock=Top 1 0 0 0", "Dock=Top 1 0 0 99999999999"},
             {" .\r\n", "\r\n"},
             {"Tools=", "Tolls="},
             {"[bndFile]", "[bndFlie]"},
         }) {
        const Designed back(Replaced(saved, file, Replaced(file, from, to)));
        EXPECT_EQ(Tools(back.At(u"bndFile")), designed) << to;
        EXPECT_TRUE(back.At(u"bndFile").Visible()) << to;
        EXPECT_EQ(Tools(back.At(u"bndGo")), "mnuGoForward mnuStop mnuRefresh mnuHome mnuSearch") << to;
    }
}

TEST(CommandBarLayout, AFileThatIsCutOffLosesOnlyWhatIsMissing) {
    Designed bar;
    for (const auto& band : bar.Bands()) band->RemoveAt(0);
    const std::string saved = bar.Saved();
    const std::size_t cut = saved.find("mnuRefresh", saved.find("[bndGo]"));
    const Designed back(std::string_view(saved).substr(0, cut + 4));
    EXPECT_EQ(Tools(back.At(u"bndFile")), "mnuOpen mnuClose mnuCloseAll");
    EXPECT_EQ(Tools(back.At(u"bndGo")), Tools(Designed().At(u"bndGo")));
    EXPECT_EQ(Tools(back.At(u"bndFont")), Tools(Designed().At(u"bndFont")));
}

TEST(CommandBarLayout, UnknownToolsAreSkipped) {
    const Designed back(
        WithTools(Designed().Saved(), "bndFile", "mnuOpen mnuOfTomorrow no/such |MNUOPEN | / mnuClose ."));
    EXPECT_EQ(Tools(back.At(u"bndFile")), "mnuOpen mnuClose");
}

TEST(CommandBarLayout, AToolNewInALaterVersionStandsOnItsDesignedBand) {
    Designed bar;
    bar.At(u"bndGo").SetEntries({{bar.Share(u"mnuHome")}, {bar.Share(u"mnuGoBack")}});
    std::string saved = bar.Saved();
    for (const char* name : {"mnuGoForward", "mnuStop", "bndFont/mnuFontLarger", "mnuSearch"})
        saved = Replaced(saved, std::string(" ") + name + " ", " ");
    // Stop stands on the View menu of the file, so it is not missing; the others are.
    saved = WithTools(saved, "bndGoMenu", "mnuGoBack .");
    saved = WithTools(saved, "bndFont", "mnuFontSmallest .");
    const Designed back(saved);
    EXPECT_EQ(Tools(back.At(u"bndGo")), "mnuHome mnuSearch mnuGoBack mnuGoForward");
    EXPECT_EQ(Tools(back.At(u"bndGoMenu")), "mnuGoBack mnuGoForward mnuSearch");
    EXPECT_EQ(Tools(back.At(u"bndFont")), "mnuFontLarger mnuFontSmallest");
}

TEST(CommandBarLayout, AToolThatTheUserRemovedStaysAway) {
    Designed bar;
    bar.At(u"bndFont").RemoveAt(1);
    bar.At(u"bndHelpMenu").RemoveAt(1);
    const Designed back(bar.Saved());
    EXPECT_EQ(Tools(back.At(u"bndFont")), "mnuFontLargest mnuFontMedium mnuFontSmaller mnuFontSmallest");
    EXPECT_EQ(Tools(back.At(u"bndHelpMenu")), "mnuHelp |mnuAbout");
    EXPECT_NE(back.Find(u"mnuFontLarger"), nullptr) << "it can be put back";
}

TEST(CommandBarLayout, WithoutTheNamesOfTheDayNothingCountsAsNew) {
    Designed bar;
    bar.At(u"bndHelpMenu").RemoveAt(1);
    const Designed back(Replaced(bar.Saved(), "Known=", "Knwon="));
    EXPECT_EQ(Tools(back.At(u"bndHelpMenu")), "mnuHelp |mnuAbout");
}

TEST(CommandBarLayout, WhatWouldBreakTheBarIsLeftOut) {
    std::string saved = Designed().Saved();
    saved = WithTools(saved, "bndFileMenu", "mnuOpen cboAddress mnuSearchLabel mnuFile mnuEdit .");
    saved = WithTools(saved, "bndEditMenu", "mnuCut mnuFile mnuCut .");
    saved = WithTools(saved, "bndFile", "cboAddress cboAddress .");
    saved = Replaced(saved, "Kind=MenuBar\r\nCaption=\"Menu Bar\"\r\nVisible=1",
                     "Kind=MenuBar\r\nCaption=\"Menu Bar\"\r\nVisible=0");
    const Designed back(saved);
    EXPECT_EQ(Tools(back.At(u"bndFileMenu")), "mnuOpen") << "a box, a label, itself, a menu that opens it";
    EXPECT_EQ(Tools(back.At(u"bndEditMenu")), "mnuCut mnuFile") << "once, and the other way round is no circle";
    EXPECT_EQ(Tools(back.At(u"bndFile")), "cboAddress");
    EXPECT_EQ(Tools(back.At(u"bndAddress")), "mnuAddress") << "a box shows on one toolbar";
    EXPECT_TRUE(back.At(u"bndMenu").Visible());
}

TEST(CommandBarLayout, OnlyProperToolbarsOfTheUserAreMade) {
    const std::string rest = "Caption=\"x\"\r\nVisible=1\r\nDock=Top 0 0 0 0\r\nTools=mnuCut .\r\n";
    const auto made = [&](const std::string& section, const std::string& kind) {
        return Designed("[" + section + "]\r\nKind=" + kind + "\r\n" + rest).Bands().size() - Designed().Bands().size();
    };
    EXPECT_EQ(made("gui1", "Toolbar"), 1u);
    EXPECT_EQ(made("gui1", "Menu"), 0u);
    EXPECT_EQ(made("gui0", "Toolbar"), 0u);
    EXPECT_EQ(made("gui01", "Toolbar"), 0u);
    EXPECT_EQ(made("gui+1", "Toolbar"), 0u);
    EXPECT_EQ(made("gui100", "Toolbar"), 0u);
    EXPECT_EQ(made("zzz/tmp", "Toolbar"), 0u);
    EXPECT_EQ(made("bndX", "Toolbar"), 0u);
    const Designed nameless(
        "[gui1]\r\nKind=Toolbar\r\nCaption=\" \t\"\r\nVisible=1\r\nDock=Top 0 0 0 0\r\nTools=.\r\n");
    EXPECT_EQ(nameless.FindBand(u"gui1"), nullptr);
}

TEST(CommandBarLayout, ABoxFillsItsRowAgainUnlessItsWidthWasSet) {
    Designed bar;
    ComboTool* box = bar.FindCombo(u"cboAddress");
    box->Measure(Pixels{900});
    EXPECT_TRUE(Designed(bar.Saved()).FindCombo(u"cboAddress")->FillsRow());
    box->Width = Pixels{520};
    EXPECT_FALSE(Designed(bar.Saved()).FindCombo(u"cboAddress")->FillsRow());
}

TEST(CommandBarLayout, DamagedWidthsAndOptionsStayAsDesigned) {
    std::string saved = Replaced(Designed().Saved(), "cboSearch=240", "cboSearch=-1");
    saved = Replaced(saved, "IconSize=Medium", "IconSize=Huge");
    saved = Replaced(saved, "ToolTips=1", "ToolTips=0");
    const Designed back(saved);
    EXPECT_EQ(back.FindCombo(u"cboSearch")->Width(), Pixels{240});
    EXPECT_EQ(back.Look(), (BarLook{IconSize::Medium, ToolText::IconsOnly, false}));
}

TEST(CommandBarLayout, AFileOfAbsurdLengthIsLeftAlone) {
    Designed bar;
    bar.At(u"bndGo").RemoveAt(0);
    EXPECT_EQ(Designed(bar.Saved() + std::string(1U << 20U, ';')).Saved(), Designed().Saved());
}

/// One random damage: a byte changed, a stretch removed, repeated or replaced by noise, the end cut off.
void Damage(std::string& bytes, std::mt19937& random) {
    const auto below = [&](std::size_t end) { return end ? static_cast<std::size_t>(random() % end) : 0; };
    const std::size_t at = below(bytes.size()), length = below(40);
    switch (below(6)) {
    case 0:
        if (!bytes.empty()) bytes[at] = static_cast<char>(random());
        break;
    case 1:
        bytes.erase(at, length);
        break;
    case 2:
        bytes.insert(at, bytes.substr(below(bytes.size()), length * 5));
        break;
    case 3:
        bytes.resize(at);
        break;
    case 4:
        for (std::size_t i = at; i < std::min(at + length, bytes.size()); ++i) bytes[i] = static_cast<char>(random());
        break;
    default: {
        // One name in another's place is damage that still parses.
        const auto word = bytes.find(' ', at), other = bytes.find(' ', below(bytes.size()));
        if (word < bytes.size() && other < bytes.size()) bytes.insert(word, bytes.substr(other, 14));
    }
    }
}

TEST(CommandBarLayout, AnyDamageToTheKeysLeavesCombinationsThatToolsMayHave) {
    std::mt19937 random(5);
    Designed bar;
    for (const Shortcut& each : std::vector(bar.Shortcuts()))
        bar.Combinations.Choose(each.ToolName, {{each.Key.KeyCode, Keys::kCtrl | Keys::kAlt}, each.Key});
    const std::string saved = bar.Saved(), keys = saved.substr(saved.find("[Keys]"));
    const std::string section = keys.substr(0, keys.find("\r\n["));
    for (int round = 0; round < 100; ++round) {
        std::string bytes = section;
        for (auto times = random() % 8; times-- > 0;) Damage(bytes, random);
        ASSERT_EQ(WrongAfterLoading(bytes), "") << "round " << round << "\n" << bytes;
    }
}

TEST(CommandBarLayout, AnyDamageLeavesAWholeBar) {
    std::mt19937 random(20);
    Designed bar;
    Band* own = bar.AddBand(u"gui1", u"Mine", BandKind::Toolbar, MadeFrom::User{});
    own->Append(bar.Share(u"mnuFont"));
    const std::string saved = bar.Saved();
    for (int round = 0; round < 300; ++round) {
        std::string bytes = saved;
        for (auto times = random() % 8; times-- > 0;) Damage(bytes, random);
        ASSERT_EQ(WrongAfterLoading(bytes), "") << "round " << round << "\n" << bytes;
    }
}

} // namespace

} // namespace tessa
