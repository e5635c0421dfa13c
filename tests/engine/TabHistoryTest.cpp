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

TEST(TabHistory, ARestoredPageKeepsItsIconWhenItIsLoadedAgain) {
    LocalServer server;
    server.Page(QStringLiteral("/icon"), "<title>icon</title><link rel=icon href=/red.svg>");
    server.Raw(QStringLiteral("/red.svg"), "HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nConnection: close\r\n\r\n"
                                           "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'>"
                                           "<rect width='16' height='16' fill='red'/></svg>");
    // Only a profile on disk knows the icons of pages that were shown before.
    ProfileFolder folder;
    EngineView tab(folder.dir.path());
    tab.Load(server.Address(QStringLiteral("/icon")));
    ASSERT_TRUE(WaitUntil([&] { return !tab.engine.Icon(1).isNull(); }));
    const std::string bytes = tab.view->History();
    const Text address = tab.view->LocationURL();
    tab.Replace(Privacy::Ordinary);
    ResumeNext(tab.view->Restore(bytes, address));
    for (int loads = 2; loads < 5; ++loads) {
        SCOPED_TRACE(loads);
        ASSERT_TRUE(WaitUntil([&] { return server.requests.count(QStringLiteral("/icon")) == loads; }));
        ASSERT_TRUE(WaitUntil([&] { return tab.view->LocationName() == u"icon" && !tab.view->Busy(); }));
        Settle(tab.engine, tab.Real().Page());
        ASSERT_TRUE(WaitUntil([&] { return !tab.engine.Icon(1).isNull(); }));
        ResumeNext(tab.view->Refresh());
    }
}

} // namespace

} // namespace tessa::qt
