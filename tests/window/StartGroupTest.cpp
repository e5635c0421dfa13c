#include "settings/InternetSettings.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// A program that is to start with the group "News".
class StartGroup : public testing::Test {
protected:
    StartGroup() {
        groups.Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n");
        ResumeNext(InternetSettings(desk.settings).StartGroup.Set(u"News"));
    }
    void KeepLastSites(const std::vector<Text>& sites) {
        SettingsStore store(desk.settings);
        ResumeNext(store.RememberLastSites.Set(true));
        ResumeNext(store.LastSites.Set(sites));
    }

    TemporaryFolder groups;
    Desk desk{{.groupFolder = groups.PathText("")}};
};

TEST_F(StartGroup, OpensWhenTheWindowComesUp) {
    desk.Load(u"");
    EXPECT_EQ(desk.Strip(), "[1*]");
    desk.Activate();
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(desk.views.Calls(3), "go about:blank, go http://b/");
    desk.Activate();
    EXPECT_EQ(desk.CountTabs(), 3U) << "once";
}

TEST_F(StartGroup, WithAnAddressOrAGroupOnTheCommandLineNothingOfItOpens) {
    desk.Start(u"http://given/");
    EXPECT_EQ(desk.Strip(), "[1*]");
    Desk other({.shared = &desk.settings, .groupFolder = groups.PathText("")});
    groups.Write("Other.tvg", "[TessaGroup]\r\nurl1=http://c/\r\n");
    other.Start(groups.PathText("Other.tvg"));
    EXPECT_EQ(other.Strip(), "1 [2*]");
    EXPECT_EQ(other.views.Calls(2), "go about:blank, go http://c/");
}

TEST_F(StartGroup, GivesWayToTheLastSites) {
    KeepLastSites({u"http://x/", u"http://y/"});
    desk.Start();
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://y/");
}

TEST_F(StartGroup, OpensWhereNoLastSitesAreReopened) {
    KeepLastSites({u"http://x/"});
    desk.Start();
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
}

TEST_F(StartGroup, OneThatHasGoneIsNamed) {
    ResumeNext(InternetSettings(desk.settings).StartGroup.Set(u"Gone"));
    desk.Start();
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.Said(), "There is no TessaGroup Gone to start with.");
}

} // namespace

} // namespace tessa
