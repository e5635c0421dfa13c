#include "qt/engine/Schedule.h"

#include <QTest>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace tessa::qt {

namespace {

/// Views that write down what they are told: "2 loads; 2 shown; 1 hidden;".
class ScheduleTest : public testing::Test {
protected:
    class Told final : public Schedule::View {
    public:
        Told(ScheduleTest& test, std::int32_t index) : m_test(test), m_name(std::to_string(index)) {
            m_test.schedule.Add(index, *this);
        }
        void StartNavigation() override { m_test.told += m_name + " loads; "; }
        void Show(ShownAs place) override {
            m_test.told += m_name + (place == ShownAs::Front ? " shown; " : " beside; ");
        }
        void Hide() override { m_test.told += m_name + " hidden; "; }

    private:
        ScheduleTest& m_test;
        std::string m_name;
    };

    /// What is told until nothing more comes of it by itself.
    std::string Turns() {
        for (int i = 0; i < 50; ++i) QCoreApplication::processEvents();
        return std::exchange(told, {});
    }

    Schedule schedule;
    std::string told;
    Told one{*this, 1}, two{*this, 2}, three{*this, 3};
};

TEST_F(ScheduleTest, NothingHappensBeforeItStarts) {
    schedule.AskTurn(1);
    schedule.BringToFront(1);
    EXPECT_EQ(Turns(), "");
    EXPECT_TRUE(schedule.PagesWait());
    schedule.Start();
    EXPECT_EQ(Turns(), "1 shown; 1 loads; ");
    EXPECT_FALSE(schedule.PagesWait());
}

TEST_F(ScheduleTest, NothingHappensBeforeTheNextTurn) {
    schedule.Start();
    schedule.AskTurn(1);
    schedule.BringToFront(1);
    EXPECT_EQ(told, "");
    EXPECT_EQ(schedule.Shown(), 0);
}

TEST_F(ScheduleTest, OfSeveralInOneTurnOnlyTheLastIsShown) {
    int fronts = 0;
    schedule.FrontChanged.ConnectForLife([&] { ++fronts; });
    schedule.Start();
    schedule.BringToFront(1);
    Turns();
    schedule.BringToFront(2);
    schedule.BringToFront(3);
    EXPECT_EQ(Turns(), "3 shown; 1 hidden; ");
    EXPECT_EQ(schedule.Shown(), 3);
    EXPECT_EQ(fronts, 2);
    schedule.BringToFront(3);
    EXPECT_EQ(Turns(), "") << "it is there already";
}

TEST_F(ScheduleTest, AViewThatAsksTwiceLoadsOnce) {
    schedule.Start();
    schedule.AskTurn(1);
    schedule.AskTurn(1);
    EXPECT_EQ(Turns(), "1 loads; ");
}

TEST_F(ScheduleTest, WhatHasEndedItsTurnLoadsNothing) {
    schedule.Start();
    schedule.AskTurn(1);
    schedule.AskTurn(2);
    schedule.EndTurn(1);
    EXPECT_EQ(Turns(), "2 loads; ");
}

TEST_F(ScheduleTest, TheFrontLoadsFirstAndTheOthersWaitForIt) {
    schedule.Start();
    schedule.AskTurn(1);
    schedule.AskTurn(2);
    schedule.BringToFront(2);
    EXPECT_EQ(Turns(), "2 shown; 2 loads; ");
    EXPECT_TRUE(schedule.PagesWait());
    schedule.EndTurn(2);
    EXPECT_EQ(Turns(), "1 loads; ");
}

TEST_F(ScheduleTest, AViewThatHasGoneIsToldNothing) {
    schedule.Start();
    schedule.BringToFront(1);
    Turns();
    schedule.AskTurn(2);
    schedule.BringToFront(2);
    schedule.Remove(2);
    schedule.Remove(1);
    EXPECT_EQ(schedule.Shown(), 0);
    EXPECT_EQ(Turns(), "");
    schedule.BringToFront(3);
    EXPECT_EQ(Turns(), "3 shown; ") << "and nobody is hidden for it";
}

TEST_F(ScheduleTest, ThoseBesideTheFrontAreShownAfterItOneATurn) {
    int changes = 0;
    schedule.ShownChanged.ConnectForLife([&] { ++changes; });
    schedule.Start();
    schedule.ShowBeside(2);
    schedule.ShowBeside(3);
    schedule.BringToFront(1);
    EXPECT_EQ(Turns(), "1 shown; 2 beside; 3 beside; ");
    EXPECT_EQ(schedule.AllShown(), (std::set<std::int32_t>{1, 2, 3}));
    EXPECT_GE(changes, 2);
    schedule.ShowBeside(2);
    EXPECT_EQ(Turns(), "") << "it is there already";
}

TEST_F(ScheduleTest, TheFrontChangesPlacesWithOneBesideIt) {
    schedule.Start();
    schedule.BringToFront(1);
    schedule.ShowBeside(2);
    Turns();
    schedule.BringToFront(2);
    schedule.ShowBeside(1);
    EXPECT_EQ(Turns(), "1 beside; 2 shown; ") << "none of them is hidden for a moment";
    EXPECT_EQ(schedule.Shown(), 2);
}

TEST_F(ScheduleTest, WhatIsParkedIsHidden) {
    schedule.Start();
    schedule.BringToFront(1);
    schedule.ShowBeside(2);
    Turns();
    schedule.Park(2);
    EXPECT_EQ(Turns(), "2 hidden; ");
    schedule.Park(2);
    EXPECT_EQ(Turns(), "");
    schedule.ShowBeside(2);
    Turns();
    schedule.BringToFront(3);
    schedule.Park(1);
    schedule.Park(2);
    EXPECT_EQ(Turns(), "3 shown; 1 hidden; 2 hidden; ");
}

TEST_F(ScheduleTest, WhatIsShownBesideLoadsBeforeWhatIsNot) {
    schedule.Start();
    schedule.AskTurn(1);
    schedule.AskTurn(2);
    schedule.AskTurn(3);
    schedule.BringToFront(3);
    schedule.ShowBeside(2);
    EXPECT_EQ(Turns(), "3 shown; 2 beside; 3 loads; 2 loads; ");
    schedule.EndTurn(3);
    EXPECT_EQ(Turns(), "1 loads; ");
}

TEST_F(ScheduleTest, OneBesideThatHasGoneIsToldNothing) {
    schedule.Start();
    schedule.BringToFront(1);
    schedule.ShowBeside(2);
    schedule.ShowBeside(3);
    Turns();
    schedule.Remove(2);
    schedule.Park(3);
    EXPECT_EQ(Turns(), "3 hidden; ");
    EXPECT_EQ(schedule.AllShown(), std::set<std::int32_t>{1});
}

} // namespace

} // namespace tessa::qt
