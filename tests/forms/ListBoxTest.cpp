#include "forms/ListBox.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

struct ListBoxTest : testing::Test {
    /// The items, the selected one in brackets.
    [[nodiscard]] std::string Shown() const {
        std::string all;
        for (std::size_t i = 0; i < list.ListCount(); ++i) {
            const std::string item = ToUtf8(list.Rows()[i]);
            all += (i == 0 ? "" : " ") + (list.ListIndex() == static_cast<int>(i) ? "[" + item + "]" : item);
        }
        return all;
    }
    ListBox list;
};

TEST_F(ListBoxTest, TheSelectionFollowsItsItem) {
    for (const TextView each : {u"a", u"b", u"c"}) list.AddItem(Text(each));
    EXPECT_EQ(Shown(), "a b c");
    EXPECT_EQ(list.FindSelected(), nullptr);
    list.ListIndex = 1;
    list.AddItem(u"x", 1);
    EXPECT_EQ(Shown(), "a x [b] c");
    list.AddItem(u"end", 99);
    EXPECT_EQ(Shown(), "a x [b] c end");
    list.RemoveItem(0);
    EXPECT_EQ(Shown(), "x [b] c end");
    list.RemoveItem(3);
    EXPECT_EQ(Shown(), "x [b] c");
    EXPECT_EQ(*list.FindSelected(), u"b");
    list.RemoveItem(1);
    EXPECT_EQ(Shown(), "x c");
    EXPECT_EQ(list.ListIndex(), -1);
    list.RemoveItem(2);
    list.Set(2, u"none");
    EXPECT_EQ(Shown(), "x c");
}

TEST_F(ListBoxTest, ItsViewHearsOfEveryChangeAndTheKeyboard) {
    std::string seen;
    int got = 0;
    list.GotFocus.ConnectForLife([&] { ++got; });
    list.AddItem(u"a");
    Connections view;
    view += list.Attach([&](RowChange change) {
        seen += std::to_string(static_cast<int>(change.kind)) + std::to_string(change.index) + " ";
    });
    view += list.FocusWanted.Connect([&] { seen += "focus "; });
    list.AddItem(u"b");
    list.AddItem(u"c", 0);
    list.Set(1, u"x");
    list.RemoveItem(2);
    list.SetFocus();
    EXPECT_EQ(seen, "00 11 10 31 22 focus ");
    view.End();
    list.AddItem(u"d");
    list.SetFocus();
    EXPECT_EQ(got, 2);
}

} // namespace

} // namespace tessa
