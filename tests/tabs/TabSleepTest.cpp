// Tests: PageLife, SteadyClock
#include "tabs/TabSleep.h"

#include "settings/frmInternetOptions.h"
#include "tests/Desk.h"

namespace tessa {

using namespace std::chrono_literals;

namespace {

/// A user with tabs, and a clock that the test turns.
class TabsThatSleep : public testing::Test {
protected:
    TabsThatSleep() {
        now = 100h;
        sleep.Schedule.ConnectForLife([this](TabSleep::Time time) { next = now + time; });
        desk.StartWithTabs(4);
        sleep.SetPatience(10min);
    }
    /// The time passes, and whatever was asked for is called when it is due.
    void Wait(TabSleep::Time time) {
        const auto until = now + time;
        while (next && *next <= until) {
            now = *std::exchange(next, std::nullopt);
            sleep.Look();
        }
        now = until;
    }
    /// The views that sleep.
    [[nodiscard]] std::string Asleep() const {
        std::string all;
        for (const auto& [index, view] : desk.views.living)
            if (view->asleep) all += (all.empty() ? "" : " ") + std::to_string(index);
        return all;
    }

    std::optional<TabSleep::Time> next;
    Desk desk;
    TabSleep::Time& now = desk.steady.now;
    TabSleep& sleep = desk.main.Sleep();
};

TEST_F(TabsThatSleep, SleepWhenTheyWereNotLookedAtForTheTime) {
    Wait(10min - 1ms);
    EXPECT_EQ(Asleep(), "");
    Wait(1ms);
    EXPECT_EQ(Asleep(), "2 3 4");
}

TEST_F(TabsThatSleep, KeepLivingByDesign) {
    sleep.SetPatience(0min);
    Wait(100h);
    EXPECT_EQ(Asleep(), "");
    EXPECT_FALSE(InternetSettings(desk.settings).Get().tabsSleep);
}

TEST_F(TabsThatSleep, CountFromWhenTheyLeftTheFront) {
    Wait(4min);
    desk.ClickTab(2);
    Wait(4min);
    desk.ClickTab(3);
    Wait(2min);
    EXPECT_EQ(Asleep(), "4");
    Wait(4min - 1ms);
    EXPECT_EQ(Asleep(), "4");
    Wait(1ms);
    EXPECT_EQ(Asleep(), "1 4");
    Wait(4min);
    EXPECT_EQ(Asleep(), "1 2 4");
}

TEST_F(TabsThatSleep, TheFrontOneNeverSleeps) {
    desk.ClickTab(4);
    Wait(100h);
    EXPECT_EQ(Asleep(), "1 2 3");
}

TEST_F(TabsThatSleep, AreNotAskedAgainWhileTheySleep) {
    Wait(10min);
    desk.views.Calls(2);
    Wait(10h);
    EXPECT_EQ(desk.views.Calls(2), "");
}

TEST_F(TabsThatSleep, TellWhenSomeHaveFallenAsleepSoThatTheirMemoryIsGivenBack) {
    int times = 0;
    sleep.Slept.ConnectForLife([&] { ++times; });
    Wait(10min - 1ms);
    EXPECT_EQ(times, 0);
    Wait(1ms);
    EXPECT_EQ(times, 1) << "once for all three";
    Wait(10h);
    EXPECT_EQ(times, 1);
}

TEST_F(TabsThatSleep, SelectingOneBringsItToTheFrontAndItSleepsAgainLater) {
    Wait(10min);
    desk.ClickTab(2);
    EXPECT_EQ(desk.views.front, 2);
    desk.views.At(2).asleep = false;
    desk.ClickTab(1);
    Wait(10min - 1ms);
    EXPECT_EQ(Asleep(), "3 4");
    Wait(1ms);
    EXPECT_EQ(Asleep(), "2 3 4");
}

TEST_F(TabsThatSleep, OneThatWasLoadedAgainBehindTheFrontCountsAnew) {
    Wait(10min);
    desk.views.At(3).asleep = false;
    Wait(10min);
    EXPECT_EQ(Asleep(), "2 4");
    Wait(10min);
    EXPECT_EQ(Asleep(), "2 3 4");
}

TEST_F(TabsThatSleep, ATabThatComesCountsFromThen) {
    Wait(5min);
    desk.NewTab(InFront::No);
    Wait(5min);
    EXPECT_EQ(Asleep(), "2 3 4");
    Wait(5min);
    EXPECT_EQ(Asleep(), "2 3 4 5");
}

TEST_F(TabsThatSleep, ClosingTabsLeavesTheOthersAsTheyWere) {
    Wait(5min);
    desk.Close(3);
    Wait(5min);
    EXPECT_EQ(Asleep(), "2 4");
    desk.Close(1);
    Wait(10h);
    EXPECT_FALSE(desk.views.At(1).asleep);
}

TEST_F(TabsThatSleep, OneThatHasNoPageYetIsLeftAlone) {
    desk.views.At(2).hasLife = false;
    Wait(1h);
    EXPECT_EQ(Asleep(), "3 4");
    desk.views.At(2).hasLife = true;
    Wait(10min);
    EXPECT_EQ(Asleep(), "2 3 4");
}

TEST_F(TabsThatSleep, OneThatTheEngineKeepsAwakeIsAskedAgain) {
    desk.views.At(2).refuses = true;
    Wait(10min);
    EXPECT_EQ(Asleep(), "3 4");
    desk.views.At(2).refuses = false;
    Wait(TabSleep::kAgain);
    EXPECT_EQ(Asleep(), "2 3 4");
}

TEST_F(TabsThatSleep, WhatKeptOneAwakeIsForgottenWhenAPageHasLoaded) {
    desk.views.At(2).refuses = true;
    Wait(10min);
    ASSERT_EQ(Asleep(), "3 4");
    desk.views.At(2).refuses = false;
    sleep.Loaded(2);
    now += TabSleep::kIconPatience - 1ms;
    EXPECT_EQ(sleep.SleepLongest(1), 0U) << "its icon is still to come";
    now += 1ms;
    EXPECT_EQ(sleep.SleepLongest(1), 1U);
    EXPECT_EQ(Asleep(), "2 3 4");
}

TEST_F(TabsThatSleep, AddressTitleAndSessionStayAsTheyWere) {
    desk.PageLoads(3, u"http://long.example/a", u"Long read");
    Wait(10min);
    ASSERT_EQ(Asleep(), "2 3 4");
    EXPECT_EQ(desk.Strip(), "[1*] 2 3 4");
    EXPECT_EQ(desk.Captions(), "[1*] 2 Long read 4");
    EXPECT_EQ(desk.Describe(desk.TabAt(3)), u"Long read\nhttp://long.example/a");
    desk.WriteSession();
    EXPECT_NE(desk.sessions.own.find("http://long.example/a"), std::string::npos);
    desk.Unload();
    EXPECT_EQ(SettingsStore(desk.settings).LastSites.Get().at(2), u"http://long.example/a");
}

TEST_F(TabsThatSleep, TheSettingAppliesAtOnceAndAtTheNextStart) {
    sleep.SetPatience(0min);
    desk.inInternetOptions = [](frmInternetOptions& form) {
        form.chkSleep.Tick(true);
        form.txtSleepMinutes.Value = Text(u"3");
        form.cmdOK.Click();
    };
    desk.Click(u"mnuViewInternetOptions");
    Wait(3min);
    EXPECT_EQ(Asleep(), "2 3 4");

    Desk next(&desk.settings);
    std::optional<TabSleep::Time> due;
    next.main.Sleep().Schedule.ConnectForLife([&](TabSleep::Time in) { due = in; });
    next.StartWithTabs(2);
    EXPECT_EQ(due, TabSleep::Time(3min));
}

TEST_F(TabsThatSleep, NoneSleepsThatIsShownBesideTheFront) {
    desk.LaySideBySide(u"h(1 3)");
    Wait(10h);
    EXPECT_EQ(Asleep(), "2 4");
    desk.ClickTab(2);
    Wait(10min - 1ms);
    EXPECT_EQ(Asleep(), "2 4") << "it was seen until now";
    Wait(1ms);
    EXPECT_EQ(Asleep(), "1 2 3 4") << "the fake does not wake by itself";
}

TEST_F(TabsThatSleep, WhatIsShownNoLongerWasSeenUntilThen) {
    desk.LaySideBySide(u"h(1 3)");
    Wait(10h);
    desk.LayAlone();
    Wait(10min - TabSleep::kAgain - 1ms);
    EXPECT_EQ(Asleep(), "2 4");
    Wait(TabSleep::kAgain + 1ms);
    EXPECT_EQ(Asleep(), "2 3 4");
}

struct Reason {
    const char* name;
    bool PageActivity::*activity;
};

void PrintTo(const Reason& reason, std::ostream* out) { *out << reason.name; }

class TabsThatStayAwake : public TabsThatSleep, public testing::WithParamInterface<Reason> {};

TEST_P(TabsThatStayAwake, AsLongAsThereIsAReason) {
    auto& view = desk.views.At(3);
    view.activity.*GetParam().activity = true;
    Wait(10h);
    EXPECT_EQ(Asleep(), "2 4");
    view.activity.*GetParam().activity = false;
    Wait(TabSleep::kAgain);
    EXPECT_EQ(Asleep(), "2 3 4");
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, TabsThatStayAwake,
    testing::Values(Reason{"Loading", &PageActivity::Loading}, Reason{"Audible", &PageActivity::Audible},
                    Reason{"HoldsInput", &PageActivity::HoldsInput}, Reason{"Downloads", &PageActivity::Downloads},
                    Reason{"Asks", &PageActivity::Asks}, Reason{"Inspected", &PageActivity::Inspected},
                    Reason{"FullScreen", &PageActivity::FullScreen}, Reason{"Prints", &PageActivity::Prints},
                    Reason{"Visible", &PageActivity::Visible}),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace

} // namespace tessa
