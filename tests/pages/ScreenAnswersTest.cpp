#include "pages/ScreenAnswers.h"

#include "pages/PageQuestions.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using ScreenAnswers::Meaning;

TEST(ScreenAnswers, OnlyASiteCanBeBlockedForGood) {
    EXPECT_EQ(ScreenAnswers::Captions(true), (std::vector<Text>{u"&Share", u"&Block", u"Al&ways Block"}));
    EXPECT_EQ(ScreenAnswers::Captions(false), (std::vector<Text>{u"&Share", u"&Block"}));
}

TEST(ScreenAnswers, WhatIsNoAnswerBlocks) {
    struct Row {
        std::size_t answer;
        Meaning meaning;
    };
    for (const Row& row : {Row{0, Meaning::Share}, Row{1, Meaning::Block}, Row{2, Meaning::AlwaysBlock},
                           Row{3, Meaning::Block}, Row{PageQuestion::kDismissed, Meaning::Block}})
        EXPECT_EQ(ScreenAnswers::MeaningOf(row.answer), row.meaning) << row.answer;
}

} // namespace

} // namespace tessa
