#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace {

struct Group : TemporaryFolder {
    explicit Group(const std::vector<std::string>& addresses) {
        std::string bytes = "[TessaGroup]\r\n";
        for (std::size_t i = 0; i < addresses.size(); ++i) {
            bytes += "url" + std::to_string(i + 1) + "=" + addresses[i] + "\r\n";
        }
        Write("group.tvg", bytes);
    }
    [[nodiscard]] Text File() const { return PathText("group.tvg"); }
};

TEST(OpenTessaGroup, ThreeAddressesBesideTwoTabsMakeFiveTheLastSelected) {
    const Group group({"http://a/", "http://b/", "http://c/"});
    Desk desk;
    desk.StartWithTabs(2);
    desk.main.OpenTessaGroup(group.File());
    EXPECT_EQ(desk.Strip(), "1 3 4 [5*] 2");
    EXPECT_EQ(desk.views.Calls(3), "go about:blank, go http://a/");
    EXPECT_EQ(desk.views.Calls(5), "go about:blank, go http://c/");
    EXPECT_EQ(desk.views.front, 5);
}

TEST(OpenTessaGroup, WithTheOthersClosedFirstTheFirstTabShowsTheFirstAddress) {
    const Group group({"http://a/", "http://b/", "http://c/"});
    Desk desk;
    desk.StartWithTabs(4);
    desk.ClickTab(3);
    desk.views.Calls(1);
    desk.main.Groups.TGCloseOthersFirst = true;
    desk.main.OpenTessaGroup(group.File());
    EXPECT_EQ(desk.Strip(), "1 5 [6*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go http://a/");
    EXPECT_TRUE(desk.messages.asked.empty());
}

TEST(OpenTessaGroup, AnEmptyGroupWithTheOthersClosedFirstLeavesABlankTab) {
    const Group group({});
    Desk desk;
    desk.StartWithTabs(3);
    desk.views.Calls(1);
    desk.main.Groups.TGCloseOthersFirst = true;
    desk.main.OpenTessaGroup(group.File());
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank");
}

TEST(OpenTessaGroup, AMissingFileOpensNothing) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.main.OpenTessaGroup(u"/nowhere/group.tvg");
    EXPECT_EQ(desk.Strip(), "[1*] 2");
}

TEST(OpenTessaGroup, AnEmptyAddressIsNavigatedAsItStands) {
    const Group group({"", "http://b/"});
    Desk desk;
    desk.Start();
    desk.main.OpenTessaGroup(group.File());
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go ");
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
}

TEST(OpenTessaGroup, AGroupOnTheCommandLineOpensBesideABlankTab) {
    const Group group({"http://a/", "http://b/"});
    Desk desk;
    desk.settings.PutList(u"LastSites", {u"http://old/", u"http://older/"});
    desk.Start(group.File());
    EXPECT_EQ(desk.Strip(), "1 2 3 [4*]") << "a group does not keep the last sites from opening beside it";
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://a/");
}

} // namespace
