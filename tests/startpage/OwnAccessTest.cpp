#include "startpage/OwnAccess.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

using OwnAccess::Step;
using enum NavigationCause;

constexpr std::array kCauses{Typed, History, Reload, Link, Form, Other};

/// What becomes of a navigation for each cause: "go", "no" or "follow".
std::string Steps(OwnNavigation navigation) {
    std::string all;
    for (const NavigationCause cause : kCauses) {
        navigation.Cause = cause;
        const Step step = OwnAccess::StepFor(navigation);
        all += step == Step::Go ? "go " : step == Step::Refuse ? "no " : "follow ";
    }
    return all;
}

TEST(OwnAccess, AWebPageLeadsNowhere) {
    //                                                          typed history reload link form other
    EXPECT_EQ(Steps({.ToOwnPage = true, .MainFrame = true}), "go go go no no no ");
    EXPECT_EQ(Steps({.ToOwnPage = false, .MainFrame = true}), "no no no no no no ");
}

TEST(OwnAccess, APageOfTheProgramsOwnLeadsToOthersAndAsksTheProgram) {
    EXPECT_EQ(Steps({.FromOwnPage = true, .ToOwnPage = true, .MainFrame = true}), "go go go go go no ");
    EXPECT_EQ(Steps({.FromOwnPage = true, .ToOwnPage = false, .MainFrame = true}), "no no no follow follow no ");
}

TEST(OwnAccess, AFrameLeadsNowhereWhateverItIsIn) {
    for (const bool from : {false, true})
        for (const bool to : {false, true})
            EXPECT_EQ(Steps({.FromOwnPage = from, .ToOwnPage = to}), "no no no no no no ");
}

TEST(OwnAccess, OnlyTheProgramAndItsPagesFetch) {
    for (const TextView own : {u"", u"tessaview:", u"tessaview:start"})
        EXPECT_TRUE(OwnAccess::MayFetch(own)) << ToUtf8(own);
    // A frame in a sandbox is of an origin called "null".
    for (const TextView other :
         {u"null", u"https://a.example", u"file:///", u"data:", u"tessaview-ask:x", u"tessaview"})
        EXPECT_FALSE(OwnAccess::MayFetch(other)) << ToUtf8(other);
}

} // namespace

} // namespace tessa
