#include "tests/Desk.h"

#include <chrono>

namespace tessa {

namespace {

/// How often the views are asked something by a step, with so many tabs open.
template<typename Step>
std::size_t AskedBy(int tabs, Step step) {
    Desk desk;
    desk.StartWithTabs(tabs);
    desk.views.asked = 0;
    step(desk);
    return desk.views.asked;
}

// What is open beside them costs a tab nothing: else a thousand would cost a million.
TEST(ManyTabs, OpeningOneAsksNoMoreOfThemHoweverManyThereAre) {
    const auto open = [](Desk& desk) { ResumeNext(desk.NewTab(InFront::Yes)->Navigate(u"http://a.example/")); };
    EXPECT_EQ(AskedBy(10, open), AskedBy(300, open));
}

TEST(ManyTabs, NorDoesSelectingOne) {
    const auto select = [](Desk& desk) { desk.ClickTab(7); };
    EXPECT_EQ(AskedBy(10, select), AskedBy(300, select));
}

TEST(ManyTabs, NorDoesAPageThatLoads) {
    const auto load = [](Desk& desk) { desk.PageLoads(5, u"http://a.example/", u"a"); };
    EXPECT_EQ(AskedBy(10, load), AskedBy(300, load));
}

TEST(ManyTabs, ToWriteThemDownEachIsAskedForItsPageOnce) {
    const auto write = [](Desk& desk) {
        for (int tab = 1; tab <= 300; ++tab) desk.views.At(tab).location = u"http://a.example/" + Decimal(tab);
        desk.WriteSession();
    };
    EXPECT_EQ(AskedBy(300, write), 2 * 300u) << "address and title";
}

} // namespace

} // namespace tessa
