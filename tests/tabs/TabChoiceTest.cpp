#include "tabs/TabChoice.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

/// Six tabs, of which the first is in front.
class TabChoiceTest : public testing::Test {
protected:
    TabChoiceTest() {
        for (int index = 1; index <= 6; ++index) {
            auto* tab = strip.Add(0, u"Tab" + Decimal(index));
            tab->Tag = index;
        }
        choice.Changed.ConnectForLife([this] { ++changes; });
    }
    Tab& Of(int index) { return *strip.Find(u"Tab" + Decimal(index)); }
    [[nodiscard]] std::string Chosen() const {
        std::string all;
        for (const std::int32_t each : choice.Indexes()) all += (all.empty() ? "" : " ") + std::to_string(each);
        return all;
    }

    TabStrip strip;
    TabChoice choice{strip};
    int changes = 0;
};

TEST_F(TabChoiceTest, BeginsWithTheTabInFront) {
    choice.Toggle(Of(3));
    EXPECT_EQ(Chosen(), "1 3");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(strip.SelectedItem(), &Of(1)) << "choosing brings none to the front";
    choice.Toggle(Of(5));
    choice.Toggle(Of(3));
    EXPECT_EQ(Chosen(), "1 5");
    choice.Toggle(Of(1));
    EXPECT_EQ(Chosen(), "5") << "the one in front can be left out";
}

TEST_F(TabChoiceTest, TheFrontAloneIsNone) {
    choice.Toggle(Of(1));
    EXPECT_EQ(Chosen(), "");
    choice.Toggle(Of(2));
    choice.Toggle(Of(2));
    EXPECT_EQ(Chosen(), "");
    EXPECT_FALSE(choice.Any());
}

TEST_F(TabChoiceTest, ARangeReachesFromWhereTheChoiceBegan) {
    choice.ExtendTo(Of(3));
    EXPECT_EQ(Chosen(), "1 2 3");
    choice.Toggle(Of(5));
    choice.ExtendTo(Of(4));
    EXPECT_EQ(Chosen(), "4 5");
    choice.ExtendTo(Of(6));
    EXPECT_EQ(Chosen(), "5 6") << "from the same tab to the other side";
    choice.AddTo(Of(4));
    EXPECT_EQ(Chosen(), "4 5 6");
}

TEST_F(TabChoiceTest, FollowsMovesAndLosesWhatCloses) {
    choice.Replace({2, 4, 6, 77});
    EXPECT_EQ(Chosen(), "2 4 6");
    strip.Move(&Of(6), 1);
    EXPECT_EQ(Chosen(), "6 2 4");
    strip.Remove(&Of(4));
    EXPECT_EQ(Chosen(), "6 2");
    EXPECT_EQ(changes, 3) << "each time that others are chosen or in another order";
    strip.Remove(&Of(6));
    strip.Remove(&Of(2));
    EXPECT_EQ(Chosen(), "");
    EXPECT_EQ(choice.Count(), 0u);
}

TEST_F(TabChoiceTest, EndsWhenItsLastTabComesToTheFront) {
    choice.Replace({3, 4});
    strip.Remove(&Of(4));
    EXPECT_EQ(Chosen(), "3");
    strip.UserClick(&Of(3));
    EXPECT_EQ(Chosen(), "");
}

TEST_F(TabChoiceTest, WhatIsDoneToAChosenTabIsDoneToAll) {
    choice.Replace({2, 4});
    EXPECT_EQ(choice.With(Of(4)), (std::vector<std::int32_t>{2, 4}));
    EXPECT_EQ(choice.With(Of(3)), (std::vector<std::int32_t>{3}));
}

TEST_F(TabChoiceTest, AllAndNone) {
    choice.All();
    EXPECT_EQ(Chosen(), "1 2 3 4 5 6");
    choice.End();
    EXPECT_EQ(Chosen(), "");
    choice.End();
    EXPECT_EQ(changes, 2);
    choice.ExtendTo(Of(2));
    EXPECT_EQ(Chosen(), "1 2") << "where it began is forgotten";
}

TEST_F(TabChoiceTest, AStripWithoutTabsHasNone) {
    TabStrip empty;
    TabChoice none(empty);
    none.All();
    none.Replace({1});
    EXPECT_EQ(none.Anchor(), nullptr);
    EXPECT_FALSE(none.Any());
}

} // namespace

} // namespace tessa
