#include "bar/KeyTable.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

constexpr KeyStroke kCtrlT{'T', Keys::kCtrl}, kCtrlE{'E', Keys::kCtrl}, kCtrlF{'F', Keys::kCtrl},
    kCtrlW{'W', Keys::kCtrl};

class KeyTableTest : public testing::Test {
protected:
    void SetUp() override {
        table.Changed.ConnectForLife([this] { ++changes; });
        table.Design({{u"new", kCtrlT}, {u"find", kCtrlF}, {u"find", {Keys::kF7, 0}}, {u"close", kCtrlW}});
        changes = 0;
    }
    std::string Of(TextView tool) const {
        std::string all;
        for (const KeyStroke key : table.Of(tool)) all += KeyWords::Word(key) + ";";
        return all;
    }
    std::string Clicks(KeyStroke key) const {
        const Shortcut* found = table.Find(key);
        return found ? ToUtf8(found->ToolName) : "";
    }

    KeyTable table;
    int changes = 0;
};

TEST_F(KeyTableTest, IsAsDesignedAtFirst) {
    EXPECT_EQ(Of(u"find"), "Ctrl+F;F7;");
    EXPECT_EQ(Clicks(kCtrlW), "close");
    EXPECT_EQ(Clicks(kCtrlE), "");
    EXPECT_EQ(Of(u"none"), "");
    EXPECT_FALSE(table.AnyChosen() || table.IsChosen(u"find") || table.IsChosen(kCtrlF));
}

TEST_F(KeyTableTest, WhatIsChosenStandsInPlaceOfTheDesign) {
    table.Choose(u"new", {kCtrlE, {Keys::kF5, 0}});
    EXPECT_EQ(Of(u"new"), "Ctrl+E;F5;");
    EXPECT_EQ(Clicks(kCtrlT), "") << "the old one clicks nothing any more";
    EXPECT_EQ(Clicks(kCtrlE), "new");
    EXPECT_TRUE(table.IsChosen(u"new") && table.IsChosen(kCtrlE) && !table.IsChosen(kCtrlT));
    table.Choose(u"find", {});
    EXPECT_EQ(Of(u"find"), "");
    EXPECT_TRUE(table.IsChosen(u"find")) << "none is a choice too";
    EXPECT_EQ(changes, 2);
}

TEST_F(KeyTableTest, AChoiceGoesBeforeTheDesignOfAnotherTool) {
    table.Choose(u"other", {kCtrlF});
    EXPECT_EQ(Clicks(kCtrlF), "other");
    EXPECT_EQ(Of(u"find"), "F7;");
    EXPECT_FALSE(table.IsChosen(u"find")) << "it gets it back when the other lets go";
    table.Reset(u"other");
    EXPECT_EQ(Of(u"find"), "Ctrl+F;F7;");
}

TEST_F(KeyTableTest, AnEarlierChoiceKeepsItsCombination) {
    table.Choose(u"other", {kCtrlE});
    table.Choose(u"new", {kCtrlE, kCtrlT, kCtrlT});
    EXPECT_EQ(Clicks(kCtrlE), "other");
    EXPECT_EQ(Of(u"new"), "Ctrl+T;");
    EXPECT_FALSE(table.IsChosen(u"new")) << "what is left is the design";
}

TEST_F(KeyTableTest, TheDesignIsNoChoiceButAnotherOrderIs) {
    table.Choose(u"find", {kCtrlE});
    table.Choose(u"find", {kCtrlF, {Keys::kF7, 0}});
    EXPECT_FALSE(table.IsChosen(u"find"));
    table.Choose(u"find", {{Keys::kF7, 0}, kCtrlF});
    EXPECT_TRUE(table.IsChosen(u"find"));
    EXPECT_EQ(Of(u"find"), "F7;Ctrl+F;");
}

TEST_F(KeyTableTest, OneToolOrAllAreReset) {
    table.Choose(u"new", {kCtrlE});
    table.Choose(u"find", {});
    table.Choose(u"other", {kCtrlT});
    table.Reset(u"new");
    EXPECT_EQ(Of(u"new"), "") << "its combination was chosen for another";
    EXPECT_FALSE(table.IsChosen(u"new"));
    table.Reset(u"close");
    EXPECT_EQ(Of(u"close"), "Ctrl+W;");
    table.ResetAll();
    EXPECT_EQ(Of(u"new") + Of(u"find") + Of(u"close") + Of(u"other"), "Ctrl+T;Ctrl+F;F7;Ctrl+W;");
    EXPECT_FALSE(table.AnyChosen());
}

TEST_F(KeyTableTest, TheNamesOfItsEntriesStayReadableWhateverIsChosenNext) {
    table.Choose(u"a tool with a name too long to be kept inside the text itself", {kCtrlE});
    for (int i = 0; i < 100; ++i) table.Choose(u"tool" + Decimal(i), {{'0' + i % 10, (i / 10) % 8}});
    EXPECT_EQ(Clicks(kCtrlE), "a tool with a name too long to be kept inside the text itself");
}

TEST_F(KeyTableTest, ANewDesignForgetsWhatWasChosen) {
    table.Choose(u"new", {kCtrlE});
    table.Design({{u"new", kCtrlF}});
    EXPECT_EQ(Of(u"new"), "Ctrl+F;");
    EXPECT_EQ(table.All().size(), 1U);
}

} // namespace

} // namespace tessa
