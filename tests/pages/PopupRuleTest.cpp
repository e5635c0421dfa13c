#include "pages/PopupRule.h"

#include "pages/PageQuestions.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using Step = PopupRule::Step;

HeldWindow Window(int number) { return {u"https://a.example/" + Decimal(number), u"a.example"}; }

Text Joined(const std::vector<Text>& texts) {
    Text all;
    for (const Text& each : texts) (all += each) += u'|';
    return all;
}

TEST(PopupRule, WhatIsDecidedForTheSiteHolds) {
    PopupRule rule;
    EXPECT_EQ(rule.Want(true, Window(1)), Step::Open);
    EXPECT_EQ(rule.Want(false, Window(1)), Step::Refuse);
    EXPECT_EQ(rule.Want(std::nullopt, Window(1)), Step::Ask) << "nothing was held before";
}

TEST(PopupRule, ManyWindowsAreOneQuestion) {
    PopupRule rule;
    EXPECT_EQ(rule.Want(std::nullopt, Window(1)), Step::Ask);
    EXPECT_EQ(rule.Words(u"a.example"), u"a.example wants to open a window of a.example.");
    EXPECT_EQ(rule.Want(std::nullopt, {u"about:blank", u""}), Step::Reword);
    EXPECT_EQ(rule.Words(u"a.example"), u"a.example wants to open 2 windows of a.example.");
}

TEST(PopupRule, TwentyAreHeldAndNoMore) {
    PopupRule rule;
    for (int i = 1; i <= 19; ++i) EXPECT_EQ(rule.Want(std::nullopt, Window(i)), i == 1 ? Step::Ask : Step::Reword);
    EXPECT_FALSE(rule.Full());
    EXPECT_EQ(rule.Words(u"This page"), u"This page wants to open 19 windows of a.example.");
    for (int i = 20; i <= 30; ++i) {
        EXPECT_EQ(rule.Want(std::nullopt, Window(i)), Step::Reword);
        EXPECT_TRUE(rule.Full());
    }
    EXPECT_EQ(rule.Words(u"This page"), u"This page wants to open more than 20 windows of a.example.");
    const auto verdict = rule.Answer(0);
    ASSERT_EQ(verdict.Opened.size(), 20U);
    EXPECT_EQ(verdict.Opened.back(), u"https://a.example/20");
    EXPECT_FALSE(rule.Full());
}

TEST(PopupRule, EachAnswerHasItsOutcome) {
    struct Row {
        std::size_t answer;
        TextView opened;
        bool remember;
    };
    for (const Row& row : {Row{0, u"https://a.example/1|", false}, Row{1, u"", false},
                           Row{2, u"https://a.example/1|", true}, Row{PageQuestion::kDismissed, u"", false}}) {
        PopupRule rule;
        static_cast<void>(rule.Want(std::nullopt, Window(1)));
        const auto verdict = rule.Answer(row.answer);
        EXPECT_EQ(Joined(verdict.Opened), row.opened) << row.answer;
        EXPECT_EQ(verdict.Remember, row.remember) << row.answer;
        EXPECT_EQ(rule.Want(std::nullopt, Window(2)), Step::Ask) << "the page may ask again";
    }
}

TEST(PopupRule, OnlyWhatIsRememberedIsAllowedForGood) {
    EXPECT_EQ(Joined(PopupRule::Answers(true)), u"A&llow Once|&Block|Al&ways Allow|");
    EXPECT_EQ(Joined(PopupRule::Answers(false)), u"A&llow Once|&Block|");
}

TEST(PopupRule, OnlyWhatIsOfTheWebOpens) {
    PopupRule rule;
    for (const TextView each : {u"about:blank", u"", u"file:///etc/passwd", u"HTTP://a/", u"javascript:1",
                                u"tessaview:start", u"data:,x", u"https://b/", u"news:x"})
        static_cast<void>(rule.Want(std::nullopt, {Text(each), {}}));
    EXPECT_EQ(Joined(rule.Answer(0).Opened), u"HTTP://a/|https://b/|");
}

} // namespace

} // namespace tessa
