#include "commands/keys/WindowKeys.h"

#include "commands/DesignTimeBar.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

std::string Fixed(const CommandBar& bar, TextView tool) {
    std::string all;
    for (const KeyStroke key : ToolKeys::Fixed(bar, tool)) all += KeyWords::Word(key) + ";";
    return all;
}

std::string ShownBy(const CommandBar& bar, TextView tool) {
    const auto key = ToolKeys::Shown(bar, tool);
    return key ? KeyWords::Word(*key) : "";
}

TEST(WindowKeysTest, TheWindowAnswersFourCombinations) {
    std::string all;
    for (const WindowKey& each : WindowKeys::All())
        all += KeyWords::Word(each.Key) + "=" + ToUtf8(TextView(each.Tool)) + ";";
    EXPECT_EQ(all, "Ctrl+Tab=mnuNextBrowserTab;Ctrl+Shift+Tab=mnuPreviousBrowserTab;Alt+D=cboAddress;Alt+R=cboSearch;");
}

TEST(WindowKeysTest, TabNeedsItsModifiersAloneAndLettersMayHaveMore) {
    EXPECT_EQ(WindowKeys::Find({Keys::kTab, Keys::kCtrl})->Tool, u"mnuNextBrowserTab"_tool);
    EXPECT_EQ(WindowKeys::Find({Keys::kTab, Keys::kCtrl | Keys::kShift})->Tool, u"mnuPreviousBrowserTab"_tool);
    for (const std::int32_t held :
         {0, Keys::kShift, Keys::kAlt, Keys::kCtrl | Keys::kAlt, Keys::kCtrl | Keys::kAlt | Keys::kShift})
        EXPECT_EQ(WindowKeys::Find({Keys::kTab, held}), nullptr) << held;
    EXPECT_NE(WindowKeys::Find({Keys::kTab, Keys::kCtrl | 8}), nullptr) << "only the three bits count";
    for (const std::int32_t held :
         {Keys::kAlt, Keys::kAlt | Keys::kShift, Keys::kAlt | Keys::kCtrl, Keys::kAlt | Keys::kCtrl | Keys::kShift})
        EXPECT_EQ(WindowKeys::Find({'D', held})->Tool, u"cboAddress"_tool) << held;
    EXPECT_EQ(WindowKeys::Find({'R', Keys::kAlt})->BoxOn, u"bndSearch"_band);
    for (const std::int32_t held : {0, Keys::kShift, Keys::kCtrl, Keys::kCtrl | Keys::kShift})
        EXPECT_EQ(WindowKeys::Find({'D', held}), nullptr);
}

TEST(WindowKeysTest, WhatOthersAnswerStaysWithItsToolUntilItIsChosenForAnother) {
    CommandBar bar;
    DesignTimeBar::Make(bar);
    EXPECT_EQ(Fixed(bar, u"mnuCopy"), "Ctrl+C;");
    EXPECT_EQ(Fixed(bar, u"mnuNextBrowserTab"), "Ctrl+Tab;") << "it is in both tables";
    EXPECT_EQ(Fixed(bar, u"cboAddress"), "Alt+D;");
    EXPECT_EQ(Fixed(bar, u"mnuNewBlank"), "");
    bar.Combinations.Choose(u"xtrTabList", {{Keys::kTab, Keys::kCtrl}});
    EXPECT_EQ(Fixed(bar, u"mnuNextBrowserTab"), "");
    EXPECT_EQ(ShownBy(bar, u"xtrTabList"), "Ctrl+Tab");
}

TEST(WindowKeysTest, MenusShowTheBarsOwnCombinationFirst) {
    CommandBar bar;
    DesignTimeBar::Make(bar);
    EXPECT_EQ(ShownBy(bar, u"mnuRefresh"), "F5");
    EXPECT_EQ(ShownBy(bar, u"cboAddress"), "Ctrl+L");
    EXPECT_EQ(ShownBy(bar, u"mnuCopy"), "Ctrl+C");
    EXPECT_EQ(ShownBy(bar, u"mnuSettings"), "");
    bar.Combinations.Choose(u"mnuCopy", {{Keys::kF7, 0}});
    EXPECT_EQ(ShownBy(bar, u"mnuCopy"), "F7");
    bar.Combinations.Choose(u"mnuRefresh", {});
    EXPECT_EQ(ShownBy(bar, u"mnuRefresh"), "");
    EXPECT_EQ(ToUtf8(ToolKeys::ShownWords(bar, u"mnuStop") + ToolKeys::ShownWords(bar, u"mnuRefresh")), "Esc");
}

} // namespace

} // namespace tessa
