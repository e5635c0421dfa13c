#include "commands/CommandTable.h"

#include "commands/DesignTimeBar.h"

#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace tessa {

namespace {

// The commands that the product has.
constexpr auto kCommandsOfTheProduct =
    "mnuAddToTessaGroup mnuCloseAll mnuHelp mnuClearAddresses mnuClearSearches mnuLoadImages mnuLoadVideos "
    "mnuLoadSounds mnuLoadAnimations mnuOrganizeTessaGroups mnuFontLargest mnuFontLarger mnuFontMedium "
    "mnuFontSmaller mnuFontSmallest mnuFont mnuReadNews mnuNewMessage mnuSendLink mnuMailQuorvaneSoftware "
    "mnuFeatureRequest mnuMailBugReport mnuReadMail mnuMail mnuNextBrowserTab mnuPreviousBrowserTab mnuSettings "
    "mnuOpen mnuAbout mnuSaveAsTessaGroup mnuGoBack mnuGoForward mnuAddToFavorites mnuOrganizeFavorites mnuNewHome "
    "mnuViewStatusbar mnuNewSearch mnuNewBlank tbNew mnuNewCurrent mnuClose mnuSearch mnuHome mnuStop mnuRefresh "
    "mnuSaveAs mnuPageSetup mnuPrint mnuCut mnuCopy mnuPaste mnuSelectAll mnuFind mnuViewInternetOptions "
    "mnuViewSource mnuExit mnuViewToolbars mnuTabStop mnuTabRefresh mnuTabClose";

/// The tool that the design makes of a row; nothing when it makes none.
const Tool* ToolOf(const CommandBar& bar, const Command& row) {
    return (row.onlyOn ? bar.ShareOwn(*row.onlyOn, row.tool) : bar.Share(row.tool)).get();
}

std::set<std::string> NamesOf(bool (*chosen)(const Command&)) {
    std::set<std::string> names;
    for (const Command& row : CommandTable()) {
        if (chosen(row)) names.insert(ToUtf8(row.tool));
    }
    return names;
}

TEST(CommandTableTest, EveryCommandOfTheProductDoesSomethingAndNoOtherToolOfIt) {
    std::istringstream words(kCommandsOfTheProduct);
    std::set<std::string> expected;
    for (std::string name; words >> name;) EXPECT_TRUE(expected.insert(name).second) << name;
    EXPECT_EQ(NamesOf([](const Command& row) {
                  return row.Runs() && !TextView(row.tool).starts_with(DesignedNames::kOwnCommands);
              }),
              expected);
}

TEST(CommandTableTest, OfOurOwnOnlyWhatOpensAMenuDoesNothing) {
    EXPECT_EQ(NamesOf([](const Command& row) {
                  return !row.Runs() && TextView(row.tool).starts_with(DesignedNames::kOwnCommands);
              }),
              (std::set<std::string>{"xtrMore", "xtrTabMore", "xtrBookmarks", "xtrTiles", "xtrTabGroupMenu",
                                     "xtrTabGroupColour", "xtrChosenTabs"}));
    for (const Command& row : CommandTable()) {
        if (!row.Runs() && TextView(row.tool).starts_with(DesignedNames::kOwnCommands)) {
            EXPECT_TRUE(row.subBand) << ToUtf8(row.tool);
        }
    }
}

TEST(CommandTableTest, TheDesignedBarIsMadeOfTheRows) {
    CommandBar bar;
    DesignTimeBar::Make(bar);
    std::size_t made = 0;
    for (const Command& row : CommandTable()) {
        const Tool* tool = ToolOf(bar, row);
        ASSERT_EQ(tool != nullptr, row.onBar != CommandTraits::OnBar::MadeLater) << ToUtf8(row.tool);
        if (!tool) continue;
        ++made;
        EXPECT_TRUE(tool->Caption().starts_with(row.caption)) << ToUtf8(row.tool);
        EXPECT_EQ(tool->Category, row.category) << ToUtf8(row.tool);
        EXPECT_EQ(tool->Description, row.description) << ToUtf8(row.tool);
        EXPECT_EQ(tool->Image.Name, row.icon) << ToUtf8(row.tool);
        EXPECT_EQ(tool->SubBand, row.subBand ? TextView(*row.subBand) : TextView()) << ToUtf8(row.tool);
        EXPECT_EQ(tool->Kind(), row.kind) << ToUtf8(row.tool);
        EXPECT_EQ(tool->Visible(), row.onBar == CommandTraits::OnBar::Shown) << ToUtf8(row.tool);
    }
    EXPECT_EQ(made, bar.Tools().size() + bar.OwnTools().size());
}

TEST(CommandTableTest, WhatIsOfferedStandsOnABandOfTheDesign) {
    CommandBar bar;
    DesignTimeBar::Make(bar);
    std::set<const Tool*> standing;
    for (const auto& band : bar.Bands()) {
        for (const BandEntry& entry : band->Entries()) standing.insert(entry.Item.get());
    }
    for (const Command& row : CommandTable()) {
        // Of the two tools for that size only the one that has an effect stands on the band.
        const bool offered = !row.category.empty() && row.tool != u"mnFontLarge"_tool;
        EXPECT_TRUE(!offered || standing.contains(ToolOf(bar, row))) << ToUtf8(row.tool);
    }
}

TEST(CommandTableTest, OnlyAMenuWhoseToolIsACommandIsClickedToo) {
    CommandBar bar;
    DesignTimeBar::Make(bar);
    std::set<std::string> clicked;
    for (const auto& tool : bar.Tools()) {
        if (tool->ClickWithSubBand) clicked.insert(ToUtf8(tool->Name()));
    }
    EXPECT_EQ(clicked, (std::set<std::string>{"mnuFont", "mnuMail", "tbNew"}));
    for (const auto& own : bar.OwnTools()) EXPECT_FALSE(own.Item->ClickWithSubBand) << ToUtf8(own.Item->Name());
}

TEST(CommandTableTest, AToolsFirstKeyIsTheOneThatMenusShow) {
    std::vector<KeyStroke> keys;
    for (const Shortcut& each : DesignedShortcuts()) {
        if (each.ToolName == u"mnuRefresh"_tool) keys.push_back(each.Key);
    }
    EXPECT_EQ(keys, (std::vector<KeyStroke>{{Keys::kF5, 0}, {'R', Keys::kCtrl}}));
}

TEST(CommandTableTest, AKeyThatOthersAnswerIsNoneOfTheBar) {
    CommandBar bar;
    DesignTimeBar::Make(bar);
    std::set<std::string> names;
    for (const Shortcut& other : ShortcutsOfOthers()) {
        names.insert(ToUtf8(other.ToolName));
        for (const Shortcut& each : bar.Shortcuts()) EXPECT_FALSE(each.Key == other.Key) << ToUtf8(other.ToolName);
    }
    EXPECT_EQ(names, (std::set<std::string>{"mnuCopy", "mnuCut", "mnuNextBrowserTab", "mnuPaste",
                                            "mnuPreviousBrowserTab", "mnuSelectAll"}));
}

TEST(CommandTableTest, TheLinksOfAFamilyAreTheProducts) {
    EXPECT_EQ(ShopLinks().size(), 21U);
    EXPECT_EQ(ShopLinks().front().tool, u"shpAirlineTickets"_tool);
    EXPECT_EQ(ShopLinks().back().tool, u"shpHosting"_tool);
    EXPECT_EQ(FindLinks().size(), 8U);
    EXPECT_EQ(FindLinks().front().tool, u"fndWebSites"_tool);
    EXPECT_EQ(FindLinks().back().tool, u"fndStockQuotes"_tool);
}

} // namespace

} // namespace tessa
