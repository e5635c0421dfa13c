#include "commands/keys/KeyChoices.h"

#include "bar/CommandBarLayout.h"
#include "commands/DesignTimeBar.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

/// A user who gives the commands of a designed bar other keys.
struct Choosing {
    Choosing() { DesignTimeBar::Make(bar); }
    [[nodiscard]] const Tool& At(TextView name) const { return *bar.Find(name); }
    /// What the list shows of a command, found by all its title.
    [[nodiscard]] std::string Keys(TextView name) const {
        for (const KeyRow& row : choices.Rows(u"")) {
            if (row.Item->Name() == name) return ToUtf8(row.Keys) + (row.Changed ? " *" : "");
        }
        return "not listed";
    }
    [[nodiscard]] std::string Titles(TextView search) const {
        std::string all;
        for (const KeyRow& row : choices.Rows(search)) all += ToUtf8(row.Title) + ";";
        return all;
    }
    [[nodiscard]] std::string Judged(TextView name, KeyStroke key) const {
        const KeyVerdict verdict = choices.Judge(At(name), key);
        return (verdict.Accepted ? "yes: " : "no: ") + ToUtf8(verdict.Words);
    }
    /// What a key does, as the name of the tool it clicks.
    [[nodiscard]] std::string Clicked(KeyStroke key) {
        std::string name;
        const Connection listens = bar.Click.Connect([&](Tool& tool) { name = ToUtf8(tool.Name()); });
        bar.KeyDown(key);
        return name;
    }

    CommandBar bar;
    Customization custom{bar};
    KeyChoices choices{custom};
};

constexpr KeyStroke kCtrlE{'E', Keys::kCtrl}, kCtrlT{'T', Keys::kCtrl};

TEST(KeyChoices, EveryCommandThatAKeyCanClickIsListedOnce) {
    const Choosing user;
    std::size_t offered = 0;
    for (const Text& category : user.custom.Categories()) {
        for (const auto& tool : user.custom.Commands(category)) {
            // The labels and the menus of a tab, and the menu that has the name of a command.
            const bool left =
                tool->Kind() == ToolKind::Label || category == u"Popup" || user.bar.Find(tool->Name()) != tool.get();
            offered += left ? 0 : 1;
            if (left && user.bar.Find(tool->Name()) == tool.get()) {
                EXPECT_EQ(user.Keys(tool->Name()), "not listed") << ToUtf8(tool->Name());
            }
        }
    }
    const auto rows = user.choices.Rows(u"");
    EXPECT_EQ(rows.size(), offered);
    EXPECT_GT(rows.size(), 100U);
    for (const KeyRow& row : rows) {
        EXPECT_EQ(user.bar.Find(row.Item->Name()), row.Item.get())
            << ToUtf8(row.Title) << ": a key would click another";
        EXPECT_FALSE(row.Title.empty() || row.Category.empty() || row.Changed);
    }
    for (const Shortcut& each : user.bar.Shortcuts())
        EXPECT_NE(user.Keys(each.ToolName), "not listed") << ToUtf8(each.ToolName);
}

TEST(KeyChoices, ARowShowsAllKeysOfItsCommand) {
    const Choosing user;
    EXPECT_EQ(user.Keys(u"mnuRefresh"), "F5, Ctrl+R");
    EXPECT_EQ(user.Keys(u"mnuCopy"), "Ctrl+C");
    EXPECT_EQ(user.Keys(u"cboAddress"), "Ctrl+L, Alt+D");
    EXPECT_EQ(user.Keys(u"mnuSettings"), "");
}

TEST(KeyChoices, WordsFindTitlesCategoriesAndKeys) {
    const Choosing user;
    EXPECT_EQ(user.Titles(u"new  BLANK"), "New Blank;");
    EXPECT_EQ(user.Titles(u"ctrl+t"), "New Blank;Next Tab;") << "the beginning of Ctrl+Tab too";
    EXPECT_EQ(user.Titles(u"edit copy"), "Copy;");
    EXPECT_EQ(user.Titles(u"f5"), "Refresh;");
    EXPECT_EQ(user.Titles(u"no such command"), "");
    EXPECT_EQ(user.Titles(u"   "), user.Titles(u""));
}

TEST(KeyChoices, AFreeCombinationIsAssignedAndShownFirst) {
    Choosing user;
    EXPECT_EQ(user.Judged(u"mnuNewBlank", kCtrlE), "yes: Ctrl+E is free.");
    user.choices.Assign(user.At(u"mnuNewBlank"), kCtrlE);
    EXPECT_EQ(user.Keys(u"mnuNewBlank"), "Ctrl+E, Ctrl+T *");
    EXPECT_EQ(user.Clicked(kCtrlE), "mnuNewBlank");
    EXPECT_EQ(user.Clicked(kCtrlT), "mnuNewBlank");
    EXPECT_EQ(user.Judged(u"mnuNewBlank", kCtrlE), "no: Ctrl+E is its key already.");
    EXPECT_EQ(user.Judged(u"mnuNewBlank", kCtrlT), "yes: Assign makes it the one that menus show.");
    user.choices.Assign(user.At(u"mnuNewBlank"), kCtrlT);
    EXPECT_EQ(user.Keys(u"mnuNewBlank"), "Ctrl+T, Ctrl+E *");
}

TEST(KeyChoices, AKeyIsTakenAwayAndStaysAway) {
    Choosing user;
    user.choices.Remove(user.At(u"mnuRefresh"), {Keys::kF5, 0});
    EXPECT_EQ(user.Keys(u"mnuRefresh"), "Ctrl+R *");
    user.choices.Remove(user.At(u"mnuRefresh"), {'R', Keys::kCtrl});
    EXPECT_EQ(user.Keys(u"mnuRefresh"), " *");
    EXPECT_EQ(user.Clicked({Keys::kF5, 0}), "");
    Choosing next;
    CommandBarLayout::Load(next.bar, CommandBarLayout::Save(user.bar));
    EXPECT_EQ(next.Keys(u"mnuRefresh"), " *");
    user.choices.Remove(user.At(u"mnuNewBlank"), kCtrlE);
    EXPECT_EQ(user.Keys(u"mnuNewBlank"), "Ctrl+T") << "it was not its key";
    user.choices.Remove(user.At(u"mnuCopy"), {'C', Keys::kCtrl});
    EXPECT_EQ(user.Keys(u"mnuCopy"), "Ctrl+C") << "boxes and pages answer it";
}

TEST(KeyChoices, ACombinationIsTakenOverFromAnotherCommand) {
    Choosing user;
    EXPECT_EQ(user.Judged(u"mnuSettings", kCtrlT),
              "yes: Ctrl+T belongs to \u201CNew Blank\u201D. Assign takes it over.");
    user.choices.Assign(user.At(u"mnuSettings"), kCtrlT);
    EXPECT_EQ(user.Keys(u"mnuSettings") + "|" + user.Keys(u"mnuNewBlank"), "Ctrl+T *| *");
    EXPECT_EQ(user.Clicked(kCtrlT), "mnuSettings");
    user.choices.Assign(user.At(u"mnuAbout"), kCtrlT);
    EXPECT_EQ(user.Keys(u"mnuSettings") + "|" + user.Keys(u"mnuAbout"), "|Ctrl+T *") << "it is as designed again";
}

TEST(KeyChoices, TheKeysOfTheWindowAreNamedAndTakenOver) {
    Choosing user;
    EXPECT_EQ(user.Judged(u"xtrTabList", {Keys::kTab, Keys::kCtrl}),
              "yes: Ctrl+Tab runs \u201CNext Tab\u201D. Assign takes it over.");
    EXPECT_EQ(user.Judged(u"xtrTabList", {'D', Keys::kAlt}),
              "yes: Alt+D leads to the box \u201CAddress\u201D. Assign takes it over.");
    EXPECT_EQ(user.Judged(u"xtrTabList", {'R', Keys::kAlt | Keys::kShift}),
              "yes: Alt+Shift+R leads to the box \u201CSearch\u201D. Assign takes it over.");
    EXPECT_EQ(user.Judged(u"xtrTabList", {Keys::kF6, Keys::kShift}),
              "yes: Shift+F6 leads round the window. Assign takes it over.");
    EXPECT_EQ(user.Judged(u"xtrTabList", {Keys::kF10, 0}), "yes: F10 leads to the menu bar. Assign takes it over.");
    EXPECT_EQ(user.Judged(u"mnuNextBrowserTab", {Keys::kTab, Keys::kCtrl}), "no: Ctrl+Tab is its key already.");
    EXPECT_EQ(user.Judged(u"cboAddress", {'D', Keys::kAlt}), "no: Alt+D is its key already.");
    user.choices.Assign(user.At(u"xtrTabList"), {Keys::kTab, Keys::kCtrl});
    EXPECT_EQ(user.Keys(u"xtrTabList"), "Ctrl+Tab, Ctrl+Shift+A *");
    EXPECT_EQ(user.Keys(u"mnuNextBrowserTab"), "");
    EXPECT_EQ(user.Judged(u"mnuNextBrowserTab", {Keys::kTab, Keys::kCtrl}),
              "yes: Ctrl+Tab belongs to \u201CList Tabs\u201D. Assign takes it over.");
    user.choices.Reset(user.At(u"xtrTabList"));
    EXPECT_EQ(user.Keys(u"mnuNextBrowserTab"), "Ctrl+Tab");
}

TEST(KeyChoices, TheAccessKeysOfTheMenuBarAreNamed) {
    Choosing user;
    EXPECT_EQ(user.Judged(u"mnuNewBlank", {'F', Keys::kAlt}),
              "yes: Alt+F opens the menu \u201CFile\u201D. Assign takes it over.");
    EXPECT_EQ(user.Judged(u"mnuNewBlank", {'H', Keys::kAlt}),
              "yes: Alt+H opens the menu \u201CHelp\u201D. Assign takes it over.")
        << "not the command of that name";
    EXPECT_EQ(user.Judged(u"mnuNewBlank", {'F', Keys::kAlt | Keys::kShift}), "yes: Alt+Shift+F is free.");
    user.custom.Add(*user.bar.FindBand(u"bndMenu"), 0, user.bar.Share(u"mnuClose"));
    EXPECT_EQ(user.Judged(u"mnuNewBlank", {'C', Keys::kAlt}),
              "yes: Alt+C runs \u201CClose\u201D. Assign takes it over.");
    user.bar.Share(u"mnuClose")->Visible = false;
    EXPECT_EQ(user.Judged(u"mnuNewBlank", {'C', Keys::kAlt}), "yes: Alt+C is free.");
}

TEST(KeyChoices, WhatIsNeededForTypingAndEditingIsRefused) {
    Choosing user;
    EXPECT_EQ(user.Judged(u"mnuNewBlank", {'E', 0}), "no: E is for typing. Hold Ctrl or Alt with it.");
    EXPECT_EQ(user.Judged(u"mnuNewBlank", {'C', Keys::kCtrl}),
              "no: Ctrl+C is needed for editing text in boxes and pages.");
    EXPECT_EQ(user.Judged(u"mnuCopy", {'C', Keys::kCtrl}), "no: Ctrl+C is its key already.");
    EXPECT_EQ(user.Judged(u"mnuNewBlank", {0, Keys::kCtrl}), "no: This key cannot be used here.");
    user.choices.Assign(user.At(u"mnuNewBlank"), {'E', 0});
    user.choices.Assign(user.At(u"mnuNewBlank"), {Keys::kEscape, 0});
    EXPECT_EQ(user.Keys(u"mnuNewBlank"), "Ctrl+T");
    EXPECT_EQ(user.Keys(u"mnuStop"), "Esc");
}

TEST(KeyChoices, ACommandGetsARefusedKeyOfItsOwnDesignBack) {
    Choosing user;
    user.choices.Remove(user.At(u"mnuStop"), {Keys::kEscape, 0});
    EXPECT_EQ(user.Judged(u"mnuStop", {Keys::kEscape, 0}), "yes: Esc is free.");
    user.choices.Assign(user.At(u"mnuStop"), {Keys::kEscape, 0});
    EXPECT_EQ(user.Keys(u"mnuStop"), "Esc");
}

TEST(KeyChoices, AResetCommandTakesItsKeysBackAndSaysFromWhom) {
    Choosing user;
    user.choices.Assign(user.At(u"mnuSettings"), {Keys::kF5, 0});
    user.choices.Assign(user.At(u"mnuAbout"), {'R', Keys::kCtrl});
    EXPECT_EQ(user.Keys(u"mnuRefresh"), " *");
    EXPECT_EQ(ToUtf8(user.choices.Reset(user.At(u"mnuRefresh"))),
              "F5 was taken from \u201CSettings\u201D. Ctrl+R was taken from \u201CAbout\u201D.");
    EXPECT_EQ(user.Keys(u"mnuRefresh") + user.Keys(u"mnuSettings") + user.Keys(u"mnuAbout"), "F5, Ctrl+R");
    EXPECT_EQ(ToUtf8(user.choices.Reset(user.At(u"mnuRefresh"))), "");
}

TEST(KeyChoices, ACommandThatLostItsKeyToAnEarlierChoiceGetsItBackWhenReset) {
    Choosing user;
    CommandBarLayout::Load(user.bar, "[Keys]\r\nmnuSettings=Ctrl+T .\r\n");
    EXPECT_EQ(user.Keys(u"mnuNewBlank"), " *") << "its design may be newer than the choice";
    EXPECT_EQ(ToUtf8(user.choices.Reset(user.At(u"mnuNewBlank"))), "Ctrl+T was taken from \u201CSettings\u201D.");
    EXPECT_EQ(user.Keys(u"mnuNewBlank"), "Ctrl+T");
}

TEST(KeyChoices, AllIsResetHereAndWithTheToolbars) {
    Choosing user;
    EXPECT_FALSE(user.choices.AnyChanged());
    for (const bool byToolbars : {false, true}) {
        user.choices.Assign(user.At(u"mnuSettings"), kCtrlT);
        user.choices.Remove(user.At(u"mnuRefresh"), {Keys::kF5, 0});
        EXPECT_TRUE(user.choices.AnyChanged());
        byToolbars ? user.custom.ResetAll() : user.choices.ResetAll();
        EXPECT_FALSE(user.choices.AnyChanged());
        EXPECT_EQ(user.Keys(u"mnuSettings") + user.Keys(u"mnuNewBlank") + user.Keys(u"mnuRefresh"), "Ctrl+TF5, Ctrl+R");
    }
}

TEST(KeyChoices, AChosenKeyOfADisabledCommandIsNobodys) {
    Choosing user;
    user.choices.Assign(user.At(u"mnuSettings"), kCtrlT);
    user.bar.Enable(u"mnuSettings", false);
    EXPECT_EQ(user.Clicked(kCtrlT), "");
}

} // namespace

} // namespace tessa
