// Tests: Hook, UnseenDesktop, UnseenWindow
#include "app/Startup.h"

#include "app/Hook.h"
#include "app/UnseenWindow.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

Startup::Result Begin(Desk& desk, TextView commandLine) {
    return Startup::Main({desk.application, desk.settings, desk.channel, desk.splash, desk.window, desk.main},
                         commandLine);
}

TEST(Startup, AFirstStartShowsTheSplashThenTheWindow) {
    Desk desk;
    EXPECT_EQ(Begin(desk, u""), Startup::Result::Runs);
    EXPECT_EQ(desk.log.Take(), "register TESSAVIEW3, look, splash, events, caption TessaView 3, show, no splash");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, home");
}

TEST(Startup, WhoeverDrivesItStartsWithABlankTab) {
    Desk desk;
    const Startup::Program program{desk.application, desk.settings, desk.channel, desk.splash,
                                   desk.window,      desk.main,     true};
    EXPECT_EQ(Startup::Main(program, u""), Startup::Result::Runs);
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go about:blank");
}

TEST(Startup, ASecondStartWithoutACommandLineOnlyBringsTheWindowForward) {
    Desk desk;
    desk.channel.running = true;
    EXPECT_EQ(Begin(desk, u""), Startup::Result::HandedOff);
    EXPECT_EQ(desk.log.Take(), "register TESSAVIEW3, look, title second instance, caption second instance, foreground");
    EXPECT_EQ(desk.settings.Stored(u"HandOffCommandLine"), u"(none)");
}

TEST(Startup, ASecondStartHandsItsAddressOver) {
    FakeSettings shared;
    Desk running(&shared);
    EXPECT_EQ(Begin(running, u""), Startup::Result::Runs);
    Desk second(&shared);
    second.channel.running = true;
    second.channel.runningHandles = [&](const Text& text) { running.channel.Arrives(text); };
    EXPECT_EQ(Begin(second, u"http://new/"), Startup::Result::HandedOff);
    EXPECT_EQ(running.Strip(), "1 [2*]");
    EXPECT_EQ(running.views.Calls(2), "go about:blank, go http://new/");
    EXPECT_EQ(shared.Stored(u"HandOffCommandLine"), u"http://new/") << "the last text stays";
}

TEST(Startup, ASecondStartLoadsItsOwnWindowAndNeverShowsIt) {
    Desk desk;
    desk.channel.running = true;
    EXPECT_EQ(Begin(desk, u"http://new/"), Startup::Result::HandedOff);
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go http://new/");
    EXPECT_EQ(desk.log.Take().find("show"), std::string::npos);
}

TEST(Startup, TheTextIsStoredBeforeTheMessageIsSent) {
    Desk desk;
    desk.channel.running = true;
    Text stored;
    desk.channel.runningHandles = [&](const Text& text) {
        stored = desk.settings.Stored(u"HandOffCommandLine");
        EXPECT_EQ(text, stored);
    };
    EXPECT_EQ(Begin(desk, u"\"/a path/page.html\""), Startup::Result::HandedOff);
    EXPECT_EQ(stored, u"\"/a path/page.html\"") << "the quotes are part of it";
}

TEST(Startup, OnAFullDiskTheAddressArrivesAndNotThatOfAnEarlierDay) {
    FakeSettings shared;
    Desk running(&shared);
    EXPECT_EQ(Begin(running, u""), Startup::Result::Runs);
    shared.Put(u"HandOffCommandLine", u"http://weeks.ago/");
    Desk second(&shared);
    second.channel.running = true;
    second.channel.runningHandles = [&](const Text& text) { running.channel.Arrives(text); };
    shared.refuse.insert(u"HandOffCommandLine");
    running.ExpectSkipped(1);
    second.ExpectSkipped(1);
    EXPECT_EQ(Begin(second, u"http://new/"), Startup::Result::HandedOff);
    EXPECT_EQ(running.views.Calls(2), "go about:blank, go http://new/");
}

TEST(Startup, ALostWindowCostsTheHandOffButTheStoreKeepsTheText) {
    Desk desk;
    desk.channel.running = true;
    desk.channel.windowFound = false;
    desk.ExpectSkipped(2);
    EXPECT_EQ(Begin(desk, u"http://new/"), Startup::Result::HandedOff);
    EXPECT_EQ(desk.settings.Stored(u"HandOffCommandLine"), u"http://new/");
}

TEST(Startup, WithMultipleInstancesAllowedEveryStartRuns) {
    Desk desk;
    desk.settings.Put(u"AllowMultipleInstances", u"true");
    desk.channel.running = true;
    EXPECT_EQ(Begin(desk, u"http://new/"), Startup::Result::Runs);
    EXPECT_EQ(desk.log.Take(), "register TESSAVIEW3, look, several allowed, splash, events, caption TessaView 3, "
                               "show, no splash");
}

/// A start that looks for an instance before it makes a window of its own.
class StartWithoutWindow : public testing::Test {
protected:
    bool HandsOver(TextView commandLine) {
        UnseenWindow window(settings, channel, layout, folder.PathText(""));
        return Startup::HandsOver(window.Platform(), commandLine);
    }

    TemporaryFolder folder;
    FakeLog log;
    FakeSettings settings;
    FakeLayoutFile layout;
    FakeChannel channel{log};
};

TEST_F(StartWithoutWindow, HandsOverByTheSameSteps) {
    channel.running = true;
    Text sent;
    channel.runningHandles = [&](const Text& text) { sent = text; };
    EXPECT_TRUE(HandsOver(u"http://new/"));
    EXPECT_EQ(sent, u"http://new/");
    EXPECT_EQ(settings.Stored(u"HandOffCommandLine"), u"http://new/");
    EXPECT_EQ(log.Take(), "register TESSAVIEW3, look, foreground, send");
}

TEST_F(StartWithoutWindow, LoadsAGroupFileThatNobodySees) {
    channel.running = true;
    const Text group = folder.PathText("news.tvg");
    folder.Write("news.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n");
    EXPECT_TRUE(HandsOver(group));
    EXPECT_EQ(settings.Stored(u"HandOffCommandLine"), group);
}

TEST_F(StartWithoutWindow, LeavesEverythingToAStartThatRuns) {
    EXPECT_FALSE(HandsOver(u"http://new/"));
    settings.Put(u"AllowMultipleInstances", u"true");
    channel.running = true;
    EXPECT_FALSE(HandsOver(u"http://new/"));
    EXPECT_EQ(settings.Stored(u"HandOffCommandLine"), u"(none)");
    EXPECT_TRUE(settings.written.empty());
}

TEST(Startup, AHandOffDuringTheStartIsIgnored) {
    Desk desk;
    desk.application.onEvents = [&] { desk.channel.Arrives(u"http://early/"); };
    EXPECT_EQ(Begin(desk, u""), Startup::Result::Runs);
    EXPECT_EQ(desk.Strip(), "[1*]");
}

TEST(Startup, TheHookGoesWithTheWindow) {
    Desk desk;
    EXPECT_EQ(Begin(desk, u""), Startup::Result::Runs);
    desk.Unload();
    desk.channel.Arrives(u"http://late/");
    EXPECT_EQ(desk.Strip(), "[1*]");
}

/// The picture that the entry of a folder has in the Favorites menu.
Picture FolderPictureOf(Desk& desk) {
    auto& band = desk.Band(u"bndFavorites");
    desk.ChangeFolderOf(u"bndFavorites");
    desk.Bar().OpenBand(band);
    return band.Entries().back().Item->Image;
}

TEST(Startup, AtTheEndTheViewsGoThenThePicturesThenTheHook) {
    const TemporaryFolder favorites;
    std::filesystem::create_directories(favorites.Path("news"));
    Desk desk({.favoritesFolder = favorites.PathText("")});
    const auto what = [&desk] {
        const std::string picture = FolderPictureOf(desk) == Picture() ? "" : " pictures";
        return picture + (desk.channel.Message.HasListeners() ? " hook" : "");
    };
    // Before the hook listens, so that it is told first.
    desk.main.Unloaded.ConnectForLife([&] { desk.log.Add("unloaded" + what()); });
    EXPECT_EQ(Begin(desk, u""), Startup::Result::Runs);
    desk.NewTab(InFront::Yes);
    desk.log.Take();
    desk.views.ended = [&](int) { desk.log.Add("view" + what()); };
    desk.Unload();
    desk.views.ended = {};
    EXPECT_EQ(desk.log.Take(), "view pictures hook, view pictures hook, unloaded hook");
    EXPECT_FALSE(desk.channel.Message.HasListeners());
}

TEST(Hook, RestoresAMinimizedWindowFirst) {
    Desk desk;
    EXPECT_EQ(Begin(desk, u""), Startup::Result::Runs);
    desk.window.state = WindowState::Minimized;
    desk.channel.Arrives(u"http://new/");
    EXPECT_EQ(desk.window.state, WindowState::Normal);
    EXPECT_EQ(desk.views.At(2).place, (Rect{{0}, {22}, {1000}, {654}})) << "laid out in the restored window";
}

TEST(Hook, LeavesAMaximizedWindowMaximized) {
    Desk desk;
    EXPECT_EQ(Begin(desk, u""), Startup::Result::Runs);
    desk.window.state = WindowState::Maximized;
    desk.channel.Arrives(u"http://new/");
    EXPECT_EQ(desk.window.state, WindowState::Maximized);
}

TEST(Hook, NavigatesToAGroupFileLikeToAnyAddress_Deliberate) {
    Desk desk;
    EXPECT_EQ(Begin(desk, u""), Startup::Result::Runs);
    desk.channel.Arrives(u"/groups/news.tvg");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go /groups/news.tvg");
}

TEST(Hook, OfTwoHandOffsAtOnceNoneIsLost) {
    Desk desk;
    EXPECT_EQ(Begin(desk, u""), Startup::Result::Runs);
    desk.settings.Put(u"HandOffCommandLine", u"http://two/");
    desk.channel.Arrives(u"http://one/");
    desk.channel.Arrives(u"http://two/");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://one/");
    EXPECT_EQ(desk.views.Calls(3), "go about:blank, go http://two/");
}

TEST(Hook, OpensNothingWhenNoTabCanBeMade) {
    Desk desk;
    EXPECT_EQ(Begin(desk, u""), Startup::Result::Runs);
    desk.views.refuses = true;
    desk.views.Calls(1);
    desk.channel.Arrives(u"http://new/");
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.Calls(1), "") << "nor does the address go anywhere else";
}

TEST(Hook, TellsTheUserOnceWhenTheIndexesHaveRunOut) {
    Desk desk;
    EXPECT_EQ(Begin(desk, u""), Startup::Result::Runs);
    desk.UseIndexesUpTo(ViewArray::kLastIndex);
    desk.channel.Arrives(u"http://new/");
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.Status(), "No more tabs can be opened until TessaView is started again.");
}

} // namespace

} // namespace tessa
