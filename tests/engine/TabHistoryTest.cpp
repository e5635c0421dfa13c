// Tests: PageHistory
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QWebEngineHistory>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

/// Two pages have been looked at, one after the other.
class TabHistoryTest : public testing::Test {
protected:
    void SetUp() override {
        server.Page(QStringLiteral("/1"), "<title>one</title>1");
        server.Page(QStringLiteral("/2"), "<title>two</title>2");
        first.Load(server.Address(QStringLiteral("/1")));
        first.Load(server.Address(QStringLiteral("/2")));
        bytes = first.view->History();
        address = first.view->LocationURL();
    }
    LocalServer server;
    EngineView first;
    std::string bytes;
    Text address;
};

TEST_F(TabHistoryTest, ARestoredViewShowsThePageAndGoesBack) {
    EngineView second;
    ASSERT_FALSE(bytes.empty());
    EXPECT_EQ(second.view->Restore(bytes, address), Outcome::Done);
    EXPECT_EQ(second.view->LocationURL(), address) << "before the engine has loaded anything";
    ASSERT_TRUE(WaitUntil([&] { return second.view->LocationName() == u"two" && !second.view->Busy(); }));
    EXPECT_EQ(second.Real().Page()->history()->count(), 2);
    EXPECT_EQ(second.view->GoBack(), Outcome::Done);
    ASSERT_TRUE(WaitUntil([&] { return second.view->LocationName() == u"one"; }));
}

TEST_F(TabHistoryTest, AViewThatIsRestoredLaterAsksForNothingUntilItIsLookedAt) {
    EngineView second;
    ResumeNext(second.view->RestoreLater(bytes, address));
    const auto before = server.requests.size();
    EngineView third;
    third.Load(server.Address(QStringLiteral("/1")));
    EXPECT_EQ(server.requests.size(), before + 1) << "the third's own";
    EXPECT_EQ(second.view->LocationURL(), address);
    EXPECT_EQ(second.view->History(), bytes) << "it may be closed before it was looked at";
    EXPECT_EQ(second.view->Stop(), Outcome::Done);
    second.view->BringToFront();
    ASSERT_TRUE(WaitUntil([&] { return second.view->LocationName() == u"two" && !second.view->Busy(); }));
    EXPECT_EQ(second.Real().Page()->history()->count(), 2);
}

TEST_F(TabHistoryTest, DamagedBytesLoadTheAddressAlone) {
    for (const std::string& damaged : {std::string(), std::string("garbage"), bytes.substr(0, bytes.size() / 2)}) {
        EngineView second;
        EXPECT_EQ(second.view->Restore(damaged, address), Outcome::Done);
        ASSERT_TRUE(WaitUntil([&] { return second.view->LocationName() == u"two"; })) << damaged.size();
    }
}

TEST_F(TabHistoryTest, ANavigationAfterwardsForgetsWhatWasToBeRestored) {
    EngineView second;
    ResumeNext(second.view->Restore(bytes, address));
    second.Load(server.Address(QStringLiteral("/1")));
    EXPECT_EQ(second.view->LocationName(), u"one");
    EXPECT_EQ(second.Real().Page()->history()->count(), 1);
}

TEST_F(TabHistoryTest, AMutedViewStaysMutedWhenItsPageIsMade) {
    EngineView second;
    second.view->SetMuted(true);
    second.Load(server.Address(QStringLiteral("/1")));
    EXPECT_TRUE(second.Real().Page()->isAudioMuted());
    second.view->SetMuted(false);
    EXPECT_FALSE(second.Real().Page()->isAudioMuted());
    second.engine.SetLoadOptions({.images = true, .animations = true, .videos = true, .sounds = false});
    EXPECT_TRUE(second.Real().Page()->isAudioMuted()) << "sounds are switched off for all";
}

} // namespace

} // namespace tessa::qt
