#include "base/os/AnswerLine.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using State = AnswerLine::State;

TEST(AnswerLine, ComesInPieces) {
    AnswerLine answer(10);
    EXPECT_EQ(answer.Add("on"), State::Comes);
    EXPECT_EQ(answer.Add(""), State::Comes);
    EXPECT_EQ(answer.Add("e\n"), State::Whole);
    EXPECT_EQ(answer.Line(), "one\n");
}

TEST(AnswerLine, WhatComesBehindItIsNobodys) {
    AnswerLine answer(10);
    EXPECT_EQ(answer.Add("one\ntwo\n"), State::Whole);
    EXPECT_EQ(answer.Line(), "one\n");
}

TEST(AnswerLine, MayHaveSoManyBytesAndNoMore) {
    EXPECT_EQ(AnswerLine(4).Add("one\n"), State::Whole);
    EXPECT_EQ(AnswerLine(4).Add("four\n"), State::TooLong);
    EXPECT_EQ(AnswerLine(4).Add("one"), State::Comes);
    EXPECT_EQ(AnswerLine(4).Add("four"), State::TooLong) << "its end would be one byte too many";
}

TEST(AnswerLine, ALongOneIsGivenUpBeforeItsEnd) {
    AnswerLine answer(4);
    EXPECT_EQ(answer.Add("ab"), State::Comes);
    EXPECT_EQ(answer.Add("cd"), State::TooLong);
}

} // namespace

} // namespace tessa
