// Tests: GroupOpening
#include "base/os/Folder.h"
#include "groups/TessaGroups.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// Groups whose files say how they open.
class GroupPlanOpens : public testing::Test {
protected:
    void Open(const std::string& plan) {
        groups.Write("a.tvg",
                     "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\nurl3=http://c/\r\n[TessaView]\r\n" + plan);
        desk.OpenGroup(groups.PathText("a.tvg"));
    }
    std::string Went(int index) { return desk.views.Calls(index); }

    TemporaryFolder groups;
    Desk desk{{.groupFolder = groups.PathText("")}};
};

TEST_F(GroupPlanOpens, APlanThatSaysNothingChangesNothing) {
    desk.StartWithTabs(2);
    Open("other=1\r\n");
    EXPECT_EQ(desk.Strip(), "1 3 4 [5*] 2");
}

TEST_F(GroupPlanOpens, FirstAndLastChangeTheOrder) {
    desk.StartWithTabs(1);
    Open("page1=last http://a/\r\npage2=first http://c/\r\n");
    EXPECT_EQ(Went(2) + "; " + Went(3) + "; " + Went(4),
              "go about:blank, go http://c/; go about:blank, go http://b/; go about:blank, go http://a/");
}

TEST_F(GroupPlanOpens, BehindTheTabInFrontStays) {
    desk.StartWithTabs(2);
    Open("behind=1\r\n");
    EXPECT_EQ(desk.Strip(), "[1*] 3 4 5 2");
}

TEST_F(GroupPlanOpens, TheOthersCloseWhateverTheSettingsSay) {
    desk.StartWithTabs(3);
    Open("closeothers=1\r\n");
    EXPECT_EQ(desk.Strip(), "1 4 [5*]");
    EXPECT_FALSE(desk.main.TGCloseOthersFirst);
}

TEST_F(GroupPlanOpens, WhatSleepsLoadsWhenSomebodyLooksAndKeepsItsPlace) {
    desk.StartWithTabs(2);
    Open("page1=asleep http://b/\r\n");
    EXPECT_EQ(desk.Strip(), "1 3 4 [5*] 2");
    EXPECT_EQ(Went(4), "go about:blank, restore  later");
    EXPECT_EQ(desk.Captions(), "1 Loading... http://b/ [Loading...*] 2");
}

TEST_F(GroupPlanOpens, OfAGroupThatSleepsAllThroughTheTabInFrontStays) {
    desk.StartWithTabs(1);
    Open("page1=asleep http://a/\r\npage2=asleep http://b/\r\npage3=asleep http://c/\r\n");
    EXPECT_EQ(desk.Strip(), "[1*] 2 3 4");
}

TEST_F(GroupPlanOpens, MutedPagesAreNotHeard) {
    desk.StartWithTabs(1);
    Open("page1=muted http://b/\r\n");
    EXPECT_FALSE(desk.views.At(2).muted);
    EXPECT_TRUE(desk.views.At(3).muted);
}

TEST_F(GroupPlanOpens, TheTextSizeIsThereWithThePage) {
    desk.StartWithTabs(1);
    Open("page1=size4 http://c/\r\n");
    EXPECT_EQ(desk.views.At(4).zoom, 2);
    desk.PageLoads(4, u"http://c/", u"C");
    EXPECT_EQ(desk.views.At(4).zoom, 4);
    desk.views.At(4).zoom = 1;
    desk.PageLoads(4, u"http://d/", u"D");
    EXPECT_EQ(desk.views.At(4).zoom, 1) << "only the first time";
}

TEST_F(GroupPlanOpens, TheTabsOfAGroupHaveItsColour) {
    desk.StartWithTabs(1);
    Open("colour=blue\r\npage1=asleep http://b/\r\n");
    const auto colours = [this] {
        std::string all;
        for (std::size_t at = 1; at <= desk.main.pcPage.Count(); ++at)
            all += std::to_string(static_cast<int>(desk.main.pcPage.FindAt(at)->Colour())) + " ";
        return all;
    };
    const std::string blue = std::to_string(static_cast<int>(TabColour::Blue)) + " ";
    EXPECT_EQ(colours(), "0 " + blue + blue + blue);
    Open("closeothers=1\r\n");
    EXPECT_EQ(colours(), blue + blue + blue) << "a group without a colour gets one that no other has";
}

TEST_F(GroupPlanOpens, PagesLieSideBySideAsTheyWereKept) {
    desk.StartWithTabs(1);
    Open("panes=h(1 2)\r\n");
    EXPECT_EQ(desk.Strip(), "1 [2*] 3 4") << "the panes are what is seen";
    EXPECT_EQ(desk.views.Shown(), "2* 3");
    Open("panes=v(3 1); h(2 9)\r\nbehind=1\r\n");
    EXPECT_EQ(desk.views.Shown(), "2* 3") << "the tab in front stays";
    desk.ClickTab(desk.main.pcPage.PositionOf(&desk.TabOf(7)));
    EXPECT_EQ(desk.views.Shown(), "5 7*");
}

TEST_F(GroupPlanOpens, EachColourHasItsMark) {
    const std::vector<std::pair<std::string, TabColour>> rows{
        {"red", TabColour::Red},     {"orange", TabColour::Orange}, {"yellow", TabColour::Yellow},
        {"green", TabColour::Green}, {"blue", TabColour::Blue},     {"purple", TabColour::Purple},
        {"grey", TabColour::Grey}};
    desk.StartWithTabs(1);
    for (const auto& [name, colour] : rows) {
        Open("colour=" + name + "\r\n");
        EXPECT_EQ(desk.main.pcPage.SelectedItem()->Colour(), colour) << name;
    }
    EXPECT_EQ(std::size(kTabColours), rows.size());
}

TEST_F(GroupPlanOpens, WhatWouldOpenUnaskedIsKnownInTheOrderOfThePlan) {
    EXPECT_TRUE(MakeFolders(groups.Path("kept")));
    groups.Write("kept/one.mhtml", "");
    groups.Write("plan.tvg", "[TessaGroup]\r\na=http://a/\r\nb=/etc/passwd\r\nc=\r\nd=javascript:alert(1)\r\n"
                             "e=kept/one.mhtml\r\nf=kept/none.mhtml\r\ng=b.example\r\n"
                             "[TessaView]\r\npage1=first b.example\r\n");
    std::string all;
    for (const auto& each : GroupOpening::AllUnasked(groups.PathText("plan.tvg")))
        all += ToUtf8(each.address) + (each.opened.empty() ? " no, " : each.opened == each.address ? ", " : " kept, ");
    EXPECT_EQ(all,
              "b.example, http://a/, /etc/passwd no, javascript:alert(1) no, kept/one.mhtml kept, kept/none.mhtml, ");
}

TEST_F(GroupPlanOpens, WritingTheGroupKeepsThePlanAndWhatBelongsToOthers) {
    groups.Write("a.tvg", "; mine\r\n[TessaGroup]\r\nurl1=http://a/\r\n[TessaView]\r\npage1=muted http://a/\r\n");
    EXPECT_EQ(TessaGroups::Write(groups.PathText("a.tvg"), {{0, u"http://b/"}, {1, u"http://a/"}}), Outcome::Done);
    EXPECT_EQ(groups.Read("a.tvg"), "; mine\r\n[TessaGroup]\r\nurl0=http://b/\r\nurl1=http://a/\r\n"
                                    "[TessaView]\r\npage1=muted http://a/\r\n");
}

TEST_F(GroupPlanOpens, AFileWithoutAPlanIsReplacedWhole) {
    groups.Write("a.tvg", "; mine\r\n[TessaGroup]\r\nurl1=http://a/\r\n[Other]\r\nx=1\r\n");
    EXPECT_EQ(TessaGroups::Write(groups.PathText("a.tvg"), {{0, u"http://b/"}}), Outcome::Done);
    EXPECT_EQ(groups.Read("a.tvg"), "[TessaGroup]\r\nurl0=http://b/\r\n");
}

} // namespace

} // namespace tessa
