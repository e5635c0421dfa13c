#include "pages/PageNavigation.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace tessa {

namespace {

using Wish = PageNavigation::Wish;
using Load = PageNavigation::Load;
using Shown = PageNavigation::Shown;
using Kind = PageNavigation::Kind;

/// As in "waiting loading document error".
std::string State(const PageNavigation& navigation) {
    static constexpr std::array kWishes{"none", "waiting", "put off"};
    static constexpr std::array kLoads{"quiet", "loading", "finished", "told"};
    static constexpr std::array kShown{"nothing", "overdue", "document"};
    static constexpr std::array kKinds{"unknown", "page", "error"};
    return std::string(kWishes.at(static_cast<std::size_t>(navigation.Wanted()))) + ' ' +
           kLoads.at(static_cast<std::size_t>(navigation.Loading())) + ' ' +
           kShown.at(static_cast<std::size_t>(navigation.What())) + ' ' +
           kKinds.at(static_cast<std::size_t>(navigation.Known()));
}

/// One letter an event. What is asked for: (a)sk, (p)ut off, (l)ook, (b)egin, (g)ive up, (o)pen. What the engine tells
/// of loads: (m)ove to another page, (s)tart, (f)inish, (t)ell the end, (d)ie. Of documents: shown (n)ow, a (P)age or
/// an (E)rror, (L)ate, no longer e(x)pected.
void Do(PageNavigation& navigation, char event) {
    switch (event) {
    case 'a':
        return navigation.Ask();
    case 'p':
        return navigation.PutOff();
    case 'l':
        return static_cast<void>(navigation.Look());
    case 'b':
        return navigation.Begin();
    case 'g':
        return static_cast<void>(navigation.GiveUp());
    case 'o':
        return navigation.Open();
    case 'm':
        return navigation.Leave();
    case 's':
        return navigation.StartLoad();
    case 'f':
        return navigation.FinishLoad();
    case 't':
        return static_cast<void>(navigation.TellEnd());
    case 'd':
        return navigation.Die();
    case 'n':
        return navigation.ShowDocument();
    case 'P':
        return static_cast<void>(navigation.Know(Kind::Page));
    case 'E':
        return static_cast<void>(navigation.Know(Kind::Error));
    case 'L':
        return navigation.BeLate();
    case 'x':
        return navigation.EndLeaving(true);
    default:
        FAIL() << event;
    }
}

PageNavigation After(std::string_view events) {
    PageNavigation navigation;
    for (const char event : events) Do(navigation, event);
    return navigation;
}

struct Row {
    std::string_view events;
    std::string_view state;
};

TEST(PageNavigation, GoesFromStateToState) {
    constexpr std::array kRows{
        Row{"", "none quiet nothing unknown"},
        // What is asked for.
        Row{"a", "waiting quiet nothing unknown"},
        Row{"ap", "put off quiet nothing unknown"},
        Row{"p", "none quiet nothing unknown"},
        Row{"apl", "waiting quiet nothing unknown"},
        Row{"apa", "waiting quiet nothing unknown"},
        Row{"l", "none quiet nothing unknown"},
        Row{"ab", "none quiet nothing unknown"},
        Row{"ag", "none quiet nothing unknown"},
        Row{"ao", "none quiet nothing unknown"},
        // What loads.
        Row{"abs", "none loading nothing unknown"},
        Row{"sf", "none finished nothing unknown"},
        Row{"sft", "none quiet nothing unknown"},
        Row{"st", "none told nothing unknown"},
        Row{"stf", "none quiet nothing unknown"},
        Row{"stt", "none told nothing unknown"},
        Row{"f", "none quiet nothing unknown"},
        Row{"t", "none quiet nothing unknown"},
        Row{"sff", "none finished nothing unknown"},
        Row{"sfs", "none loading nothing unknown"},
        Row{"sd", "none quiet nothing unknown"},
        // What is shown.
        Row{"mn", "none quiet document unknown"},
        Row{"mnP", "none quiet document page"},
        Row{"mnE", "none quiet document error"},
        Row{"mnPn", "none quiet document page"},
        Row{"mnPm", "none quiet document page"},
        Row{"mnPmn", "none quiet document unknown"},
        Row{"mnPmxn", "none quiet document page"},
        Row{"Px", "none quiet document page"},
        Row{"L", "none quiet overdue unknown"},
        Row{"La", "waiting quiet nothing unknown"},
        Row{"Ln", "none quiet document unknown"},
        Row{"nL", "none quiet document unknown"},
        // All at once.
        Row{"mnPams", "waiting loading document page"},
    };
    for (const Row& each : kRows) EXPECT_EQ(State(After(each.events)), each.state) << each.events;
}

TEST(PageNavigation, IsBusyUntilALoadHasFinished) {
    for (const std::string_view busy : {"s", "st", "sfs"}) EXPECT_TRUE(After(busy).Busy()) << busy;
    for (const std::string_view quiet : {"", "a", "sf", "stf", "sd"}) EXPECT_FALSE(After(quiet).Busy()) << quiet;
}

TEST(PageNavigation, TheEndOfALoadIsToldOnce) {
    PageNavigation navigation;
    EXPECT_FALSE(navigation.TellEnd()) << "there was none";
    navigation.StartLoad();
    EXPECT_TRUE(navigation.TellEnd());
    EXPECT_FALSE(navigation.TellEnd());
    navigation.FinishLoad();
    EXPECT_FALSE(navigation.TellEnd());
    navigation.StartLoad();
    navigation.FinishLoad();
    EXPECT_TRUE(navigation.TellEnd());
    navigation.StartLoad();
    navigation.Die();
    EXPECT_FALSE(navigation.TellEnd()) << "that it has died was";
}

TEST(PageNavigation, OnlyWhatIsNewIsToldOfADocument) {
    PageNavigation navigation = After("mn");
    EXPECT_TRUE(navigation.Know(Kind::Page));
    EXPECT_FALSE(navigation.Know(Kind::Page));
    EXPECT_TRUE(navigation.Know(Kind::Error));
    navigation.Leave();
    navigation.ShowDocument();
    EXPECT_TRUE(navigation.Know(Kind::Error)) << "of another document";
}

TEST(PageNavigation, SaysWhetherSomethingWasWaiting) {
    PageNavigation navigation;
    EXPECT_FALSE(navigation.GiveUp());
    EXPECT_FALSE(navigation.Look());
    navigation.Ask();
    EXPECT_TRUE(navigation.Waits());
    EXPECT_FALSE(navigation.Look()) << "it has its turn already";
    EXPECT_TRUE(navigation.GiveUp());
    EXPECT_FALSE(navigation.Waits());
}

TEST(PageNavigation, AViewThatAnotherPageHasOpenedIsThatPagesUntilItIsSentElsewhere) {
    EXPECT_TRUE(After("o").Opened());
    EXPECT_TRUE(After("oa").Opened()) << "nothing of it has begun";
    EXPECT_FALSE(After("oab").Opened());
}

} // namespace

} // namespace tessa
