#include "groups/TabsOfFront.h"

#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

TEST(TabsOfFront, AreThoseOfItsGroupOrAll) {
    TemporaryFolder folder;
    folder.Write("group.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n");
    folder.Write("other.tvg", "[TessaGroup]\r\nurl1=http://c/\r\n");
    Desk desk;
    desk.StartWithTabs(2);
    desk.OpenGroup(folder.PathText("group.tvg"));
    desk.OpenGroup(folder.PathText("other.tvg"));
    EXPECT_EQ(desk.Strip(), "1 3 4 [5*] 2");
    const TabsOfFront tabs(desk.main.pcPage, desk.main.Choice());
    EXPECT_EQ(tabs.Chosen(), std::vector<std::int32_t>{5});
    desk.ClickTab(2);
    EXPECT_EQ(tabs.Chosen(), (std::vector<std::int32_t>{3, 4}));
    desk.ClickTab(1);
    EXPECT_EQ(tabs.Chosen(), (std::vector<std::int32_t>{1, 3, 4, 5, 2})) << "it is of none";
    desk.ClickTab(2);
    desk.Click(u"xtrTileRows");
    EXPECT_EQ(desk.views.Shown(), "3* 4");
    desk.main.Choice().Replace({2, 5, 99});
    EXPECT_EQ(tabs.Chosen(), (std::vector<std::int32_t>{5, 2})) << "chosen, in the order of the strip";
}

} // namespace

} // namespace tessa
