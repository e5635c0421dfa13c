#include "tabs/MemoryRelief.h"

#include "tests/Desk.h"

namespace tessa {

using namespace std::chrono_literals;

namespace {

/// A user with tabs, a clock that the test turns, and a kernel that says what the test says. Tabs may stay awake as
/// long as they like.
class TabsInLittleMemory : public testing::Test {
protected:
    TabsInLittleMemory() {
        now = 100h;
        relief.Schedule.ConnectForLife([this](MemoryRelief::Time time) { next = now + time; });
        relief.Changed.ConnectForLife([this](Shortage level) { told.push_back(level); });
    }
    /// So many tabs, of which each was in front a minute before the next, the first at last and now; all have loaded.
    void StartWithTabs(int count) {
        desk.StartWithTabs(count);
        for (int tab = 2; tab <= count; ++tab) {
            desk.ClickTab(static_cast<std::size_t>(tab));
            now += 1min;
        }
        desk.ClickTab(1);
        now += 1min;
        next.reset();
    }
    void Load(int index) {
        desk.views.At(index).events.DocumentComplete(static_cast<std::int16_t>(index), PageLevel::Top,
                                                     u"http://a.example/");
    }
    void Wait(MemoryRelief::Time time) {
        const auto until = now + time;
        while (next && *next <= until) {
            now = *std::exchange(next, std::nullopt);
            relief.Look();
        }
        now = until;
    }
    [[nodiscard]] std::string Asleep() const {
        std::string all;
        for (const auto& [index, view] : desk.views.living)
            if (view->asleep) all += (all.empty() ? "" : " ") + std::to_string(index);
        return all;
    }
    /// "2 3 4"
    [[nodiscard]] static std::string Numbers(int first, int last) {
        std::string all;
        for (int i = first; i <= last; ++i) all += (all.empty() ? "" : " ") + std::to_string(i);
        return all;
    }

    std::optional<MemoryRelief::Time> next;
    std::vector<Shortage> told;
    Desk desk;
    MemoryRelief::Time& now = desk.steady.now;
    FakeMemory& memory = desk.memory;
    bool& waiting = desk.views.waiting;
    MemoryRelief& relief = desk.main.Relief();
};

TEST_F(TabsInLittleMemory, StayAwakeWhileThereIsRoom) {
    StartWithTabs(10);
    Load(2);
    Wait(10h);
    EXPECT_EQ(Asleep(), "");
    EXPECT_EQ(desk.Said(), "");
}

TEST_F(TabsInLittleMemory, SleepAFewAtATimeThoseNotLookedAtLongestFirst) {
    StartWithTabs(12);
    desk.ClickTab(3);
    now += 1s;
    desk.ClickTab(1);
    memory.level = Shortage::Short;
    Load(1);
    Wait(0ms);
    EXPECT_EQ(Asleep(), "2") << "one at a time: that takes the engine a while";
    Wait(MemoryRelief::kOften - 1ms);
    EXPECT_EQ(Asleep(), "2 4 5 6") << "the third was looked at last, and what they have given back is not known yet";
    Wait(MemoryRelief::kOften);
    EXPECT_EQ(Asleep(), "2 4 5 6 7 8 9 10");
    Wait(10h);
    EXPECT_EQ(Asleep(), Numbers(2, 12)) << "but not the one in front";
}

TEST_F(TabsInLittleMemory, StopFallingAsleepWhenThereIsRoomAgain) {
    StartWithTabs(12);
    memory.level = Shortage::Short;
    Load(1);
    Wait(MemoryRelief::kOften - 1ms);
    memory.level = Shortage::None;
    Wait(10h);
    EXPECT_EQ(Asleep(), "2 3 4 5");
}

TEST_F(TabsInLittleMemory, SleepManyAtOnceWhenItIsVeryShort) {
    StartWithTabs(40);
    memory.level = Shortage::Severe;
    Load(1);
    Wait(MemoryRelief::kOften - 1ms);
    EXPECT_EQ(Asleep(), Numbers(2, 1 + static_cast<int>(MemoryRelief::kMany)));
}

TEST_F(TabsInLittleMemory, StayAwakeForTheReasonsThatHoldForIdleOnes) {
    StartWithTabs(6);
    desk.views.At(2).activity.HoldsInput = true;
    desk.views.At(3).activity.Audible = true;
    desk.views.At(4).hasLife = false;
    memory.level = Shortage::Severe;
    Load(1);
    Wait(1h);
    EXPECT_EQ(Asleep(), "5 6");
    desk.views.At(2).activity.HoldsInput = false;
    Wait(MemoryRelief::kRare);
    EXPECT_EQ(Asleep(), "2 5 6");
}

TEST_F(TabsInLittleMemory, OneThatTheEngineKeepsAwakeIsNotAskedEverySecond) {
    StartWithTabs(40);
    desk.views.At(2).refuses = true;
    desk.views.Calls(2);
    memory.level = Shortage::Short;
    Load(1);
    Wait(TabSleep::kAgain - 1ms);
    EXPECT_EQ(desk.views.Calls(2), "sleep");
    desk.views.At(2).refuses = false;
    Wait(MemoryRelief::kRare + 1ms);
    EXPECT_EQ(Asleep(), Numbers(2, 40));
}

TEST_F(TabsInLittleMemory, OneThatWasLoadedAgainBehindTheFrontIsTheLastToGo) {
    StartWithTabs(7);
    memory.level = Shortage::Short;
    Load(1);
    Wait(MemoryRelief::kOften - 1ms);
    ASSERT_EQ(Asleep(), "2 3 4 5");
    desk.views.At(2).asleep = false;
    Wait(MemoryRelief::kOften);
    EXPECT_EQ(Asleep(), Numbers(2, 7));
    EXPECT_EQ(told, std::vector{Shortage::Short});
}

TEST_F(TabsInLittleMemory, ThoseThatFallAsleepTogetherLeaveTheWindowTimeInBetween) {
    StartWithTabs(40);
    memory.level = Shortage::Severe;
    Load(1);
    Wait(0ms);
    EXPECT_EQ(Asleep(), "2");
    Wait(MemoryRelief::kPause);
    EXPECT_EQ(Asleep(), "2 3");
    EXPECT_EQ(memory.asked, 1);
    Wait(10 * MemoryRelief::kPause);
    EXPECT_EQ(Asleep(), Numbers(2, 13));
    EXPECT_EQ(memory.asked, 1);
}

TEST_F(TabsInLittleMemory, SaySoOnceInASession) {
    StartWithTabs(12);
    memory.level = Shortage::Short;
    Load(1);
    EXPECT_EQ(desk.Said(), "");
    Wait(0ms);
    EXPECT_EQ(desk.Said(), "Memory is short. Tabs that you have not looked at for long sleep until you do.");
    desk.ReadNotice();
    Wait(1h);
    memory.level = Shortage::None;
    Wait(1h);
    desk.views.At(2).asleep = false;
    memory.level = Shortage::Severe;
    Wait(1h);
    EXPECT_EQ(Asleep(), Numbers(2, 12));
    EXPECT_EQ(desk.Said(), "");
}

TEST_F(TabsInLittleMemory, NothingIsSaidWhenNothingCanSleep) {
    desk.StartWithTabs(1);
    memory.level = Shortage::Severe;
    Load(1);
    Wait(1h);
    EXPECT_EQ(desk.Said(), "");
}

TEST_F(TabsInLittleMemory, TheKernelIsAskedRarelyWhileThereIsRoom) {
    StartWithTabs(3);
    Load(1);
    Wait(0ms);
    const int before = memory.asked;
    Wait(10 * MemoryRelief::kRare);
    EXPECT_EQ(memory.asked - before, 10);
}

TEST_F(TabsInLittleMemory, TheKernelIsNotAskedForASingleTab) {
    desk.StartWithTabs(1);
    Load(1);
    Wait(0ms);
    const int before = memory.asked;
    Wait(10h);
    EXPECT_EQ(memory.asked, before);
}

TEST_F(TabsInLittleMemory, PagesThatLoadHaveItAskedOnceASecondAtMost) {
    StartWithTabs(3);
    for (int i = 0; i < 100; ++i) {
        Load(2);
        Wait(100ms);
    }
    EXPECT_EQ(memory.asked, 11) << "at the beginning and the end of ten seconds";
}

TEST_F(TabsInLittleMemory, WhatHasJustLoadedWhileOthersWaitSleepsFirst) {
    StartWithTabs(10);
    memory.level = Shortage::Short;
    waiting = true;
    for (int index = 6; index <= 8; ++index) Load(index);
    Wait(TabSleep::kIconPatience - 1ms);
    EXPECT_EQ(Asleep(), "") << "their icons are still to come";
    Wait(MemoryRelief::kOften);
    EXPECT_EQ(Asleep(), "6 7 8");
    waiting = false;
    Wait(1h);
    EXPECT_EQ(Asleep(), Numbers(2, 10)) << "that was not enough";
}

TEST_F(TabsInLittleMemory, WhatTheUserHasLookedAtSinceIsNoneOfThese) {
    StartWithTabs(10);
    memory.level = Shortage::Short;
    waiting = true;
    for (int index = 6; index <= 8; ++index) Load(index);
    now += 10ms;
    desk.ClickTab(7);
    now += 10ms;
    desk.ClickTab(1);
    Wait(TabSleep::kIconPatience + 5 * MemoryRelief::kPause);
    EXPECT_EQ(Asleep(), "6 8");
}

TEST_F(TabsInLittleMemory, PagesOfAGroupThatHaveLoadedBeforeItGotShortSleepFirst) {
    StartWithTabs(10);
    waiting = true;
    for (int index = 6; index <= 8; ++index) Load(index);
    Wait(5s);
    EXPECT_EQ(Asleep(), "");
    memory.level = Shortage::Short;
    Wait(1s + 5 * MemoryRelief::kPause);
    EXPECT_EQ(Asleep(), "6 7 8");
}

TEST_F(TabsInLittleMemory, WhatHasLoadedByItselfIsNoGroup) {
    StartWithTabs(10);
    memory.level = Shortage::Short;
    Load(8);
    Wait(MemoryRelief::kOften - 1ms);
    EXPECT_EQ(Asleep(), "2 3 4 5");
}

TEST_F(TabsInLittleMemory, WhenItIsVeryShortTheLongestNotLookedAtSleepWithThem) {
    StartWithTabs(10);
    memory.level = Shortage::Severe;
    waiting = true;
    Load(8);
    Wait(MemoryRelief::kOften - 1ms);
    EXPECT_EQ(Asleep(), "2 3 4 5 6 7 9 10") << "the icon of the eighth is still to come";
    Wait(TabSleep::kIconPatience);
    EXPECT_EQ(Asleep(), Numbers(2, 10));
}

TEST_F(TabsInLittleMemory, ThoseWhoMustKnowAreToldOfEveryChange) {
    StartWithTabs(3);
    for (const auto level : {Shortage::Short, Shortage::Severe, Shortage::Short, Shortage::None}) {
        memory.level = level;
        Load(1);
        Wait(MemoryRelief::kOften);
    }
    EXPECT_EQ(told, (std::vector{Shortage::Short, Shortage::Severe, Shortage::Short, Shortage::None}));
}

TEST_F(TabsInLittleMemory, NothingHappensOnceTheWindowHasEnded) {
    StartWithTabs(5);
    memory.level = Shortage::Severe;
    Load(1);
    desk.Unload();
    const int before = memory.asked;
    Wait(1h);
    EXPECT_EQ(memory.asked, before);
}

TEST_F(TabsInLittleMemory, ClosedTabsAreNoMatter) {
    StartWithTabs(10);
    waiting = true;
    memory.level = Shortage::Short;
    Load(6);
    Load(7);
    desk.Close(6);
    desk.Close(1);
    Wait(1h);
    EXPECT_FALSE(desk.views.At(1).asleep) << "its view is only hidden";
    EXPECT_EQ(Asleep(), "3 4 5 7 8 9 10");
}

TEST_F(TabsInLittleMemory, CaptionTitleAndSessionStayAsTheyWere) {
    desk.StartWithTabs(4);
    desk.PageLoads(3, u"http://long.example/a", u"Long read");
    memory.level = Shortage::Severe;
    Load(1);
    Wait(MemoryRelief::kRare);
    ASSERT_EQ(Asleep(), "2 3 4");
    EXPECT_EQ(desk.Captions(), "[1*] 2 Long read 4");
    desk.WriteSession();
    EXPECT_NE(desk.sessions.own.find("Address=http://long.example/a\nTitle=Long read\n"), std::string::npos);
}

TEST_F(TabsInLittleMemory, IdleOnesSleepByTheirTimeAsWell) {
    StartWithTabs(4);
    desk.main.Sleep().SetPatience(10min);
    now += 1h;
    desk.main.Sleep().Look();
    EXPECT_EQ(Asleep(), "2 3 4");
}

} // namespace

} // namespace tessa
