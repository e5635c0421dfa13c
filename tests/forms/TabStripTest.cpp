#include "forms/TabStrip.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

std::string State(const TabStrip& strip) {
    std::string all;
    for (std::size_t i = 1; i <= strip.Count(); ++i) {
        const auto* tab = strip.FindAt(i);
        const std::string key = ToUtf8(tab->Key());
        all += (all.empty() ? "" : " ") + (tab == strip.SelectedItem() ? "[" + key + "*]" : key);
    }
    return all;
}

void Fill(TabStrip& strip, int count) {
    for (int i = 1; i <= count; ++i) strip.Add(strip.Count() + 1, Decimal(i));
}

TEST(TabStrip, AddsAtAPositionAndRefusesAKeyInUse) {
    TabStrip strip;
    Fill(strip, 3);
    strip.Add(2, u"x");
    EXPECT_EQ(State(strip), "[1*] x 2 3");
    EXPECT_EQ(strip.Add(1, u"x"), nullptr);
    strip.Add(0, u"y");
    strip.Add(99, u"z");
    EXPECT_EQ(State(strip), "[1*] x 2 3 y z");
}

TEST(TabStrip, ARemovedSelectedTabHandsOnToItsRightNeighbourElseTheLeft) {
    TabStrip strip;
    Fill(strip, 3);
    strip.Select(strip.FindAt(2));
    strip.Remove(strip.Find(u"2"));
    EXPECT_EQ(State(strip), "1 [3*]");
    strip.Remove(strip.Find(u"3"));
    EXPECT_EQ(State(strip), "[1*]");
    strip.Remove(strip.Find(u"1"));
    EXPECT_EQ(strip.SelectedItem(), nullptr);
    strip.Remove(strip.Find(u"1"));
    EXPECT_EQ(strip.Count(), 0u);
}

TEST(TabStrip, ASelectionRunsClickOnceAndOnlyWhenItChanges) {
    TabStrip strip;
    Fill(strip, 2);
    int clicks = 0;
    strip.Click.ConnectForLife([&] { ++clicks; });
    strip.Select(strip.FindAt(1));
    EXPECT_EQ(clicks, 0);
    strip.Select(strip.FindAt(2));
    EXPECT_EQ(clicks, 1);
    strip.UserClick(strip.FindAt(2));
    EXPECT_EQ(clicks, 2);
    strip.Select(nullptr);
    EXPECT_EQ(clicks, 2);
}

TEST(TabStrip, MovesATabAndKeepsTheSelectionWithIt) {
    TabStrip strip;
    Fill(strip, 4);
    strip.Select(strip.FindAt(2));
    strip.Move(strip.FindAt(2), 4);
    EXPECT_EQ(State(strip), "1 3 4 [2*]");
    strip.Move(strip.FindAt(4), 1);
    EXPECT_EQ(State(strip), "[2*] 1 3 4");
    strip.Move(strip.FindAt(1), 9);
    EXPECT_EQ(State(strip), "[2*] 1 3 4");
}

TEST(TabStrip, TellsItsViewOnceUntilItHasRepainted) {
    TabStrip strip;
    int layouts = 0;
    int faces = 0;
    const Connection view =
        strip.Attach([&](TabStripChange change) { ++(change == TabStripChange::Layout ? layouts : faces); });
    EXPECT_EQ(layouts, 1) << "attaching shows the present state";
    strip.Clean();
    Fill(strip, 500);
    EXPECT_EQ(layouts, 2);
    for (int i = 1; i <= 500; ++i) strip.SetCaption(strip.FindAt(static_cast<std::size_t>(i)), u"title");
    strip.SetImage(strip.FindAt(1), TabImage::Red);
    EXPECT_EQ(faces, 1);
    strip.Clean();
    strip.SetCaption(strip.FindAt(1), u"title");
    EXPECT_EQ(faces, 1) << "the same caption again is no change";
    strip.SetCaption(strip.FindAt(1), u"other");
    EXPECT_EQ(faces, 2);
}

} // namespace

} // namespace tessa
