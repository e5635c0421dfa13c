#include "bar/KeyRules.h"

#include <gtest/gtest.h>
#include <vector>

namespace tessa {

namespace {

std::string Why(KeyStroke key) { return ToUtf8(KeyRules::Refusal(key)); }

TEST(KeyRules, ATypedKeyNeedsCtrlOrAlt) {
    for (const std::int32_t code :
         {std::int32_t{'A'}, std::int32_t{'Z'}, std::int32_t{'0'}, std::int32_t{'9'}, Keys::kPlus, Keys::kMinus,
          Keys::kComma, Keys::kPeriod, Keys::kSlash, Keys::kSpace}) {
        for (const std::int32_t held : {0, Keys::kShift})
            EXPECT_NE(Why({code, held}).find(" is for typing. Hold Ctrl or Alt with it."), std::string::npos) << code;
        EXPECT_EQ(Why({code, Keys::kCtrl | Keys::kAlt}), "") << code;
        EXPECT_EQ(Why({code, Keys::kAlt | Keys::kShift}), "") << code;
    }
    EXPECT_EQ(Why({'E', 0}), "E is for typing. Hold Ctrl or Alt with it.");
    EXPECT_EQ(Why({'E', Keys::kCtrl}), "");
    EXPECT_EQ(Why({'E', Keys::kAlt}), "");
}

TEST(KeyRules, AFunctionKeyMayStandAlone) {
    for (std::int32_t code = Keys::kF1; code <= Keys::kF12; ++code) EXPECT_EQ(Why({code, 0}), "");
    EXPECT_EQ(Why({Keys::kF10, Keys::kShift}), "Shift+F10 opens the menu of what has the keyboard.");
    EXPECT_EQ(Why({Keys::kF4, Keys::kAlt}), "Alt+F4 closes the window.");
    EXPECT_EQ(Why({Keys::kF4, Keys::kCtrl}), "");
}

TEST(KeyRules, WhatEditsTextIsLeftToBoxesAndPages) {
    for (const KeyStroke key : std::vector<KeyStroke>{{'A', Keys::kCtrl},
                                                      {'C', Keys::kCtrl},
                                                      {'V', Keys::kCtrl},
                                                      {'V', Keys::kCtrl | Keys::kShift},
                                                      {'X', Keys::kCtrl},
                                                      {'Y', Keys::kCtrl},
                                                      {'Z', Keys::kCtrl},
                                                      {'Z', Keys::kCtrl | Keys::kShift},
                                                      {Keys::kBackspace, 0},
                                                      {Keys::kBackspace, Keys::kCtrl},
                                                      {Keys::kDelete, 0},
                                                      {Keys::kDelete, Keys::kShift},
                                                      {Keys::kInsert, Keys::kShift},
                                                      {Keys::kInsert, Keys::kCtrl}})
        EXPECT_NE(Why(key).find(" is needed for editing text in boxes and pages."), std::string::npos) << key.KeyCode;
    EXPECT_EQ(Why({'C', Keys::kCtrl}), "Ctrl+C is needed for editing text in boxes and pages.");
    for (const KeyStroke key : std::vector<KeyStroke>{{'A', Keys::kCtrl | Keys::kShift},
                                                      {'C', Keys::kCtrl | Keys::kShift},
                                                      {'C', Keys::kAlt},
                                                      {Keys::kDelete, Keys::kCtrl | Keys::kShift},
                                                      {Keys::kBackspace, Keys::kAlt}})
        EXPECT_EQ(Why(key), "");
}

TEST(KeyRules, WhatMovesAboutIsLeftToBoxesAndPages) {
    for (const std::int32_t code : {Keys::kLeft, Keys::kRight, Keys::kUp, Keys::kDown, Keys::kHome, Keys::kEnd}) {
        for (const std::int32_t held : {0, Keys::kShift, Keys::kCtrl, Keys::kCtrl | Keys::kShift})
            EXPECT_NE(Why({code, held}), "") << code;
        EXPECT_EQ(Why({code, Keys::kAlt}).empty(), code != Keys::kUp && code != Keys::kDown) << code;
        EXPECT_EQ(Why({code, Keys::kCtrl | Keys::kAlt}), "") << code;
    }
    for (const std::int32_t code : {Keys::kPageUp, Keys::kPageDown}) {
        for (const std::int32_t held : {0, Keys::kShift}) EXPECT_NE(Why({code, held}), "") << code;
        EXPECT_EQ(Why({code, Keys::kCtrl}), "") << code;
    }
}

TEST(KeyRules, TabEnterEscapeAndSpaceAreNeededAsTheyAre) {
    for (const KeyStroke key : std::vector<KeyStroke>{{Keys::kTab, 0},
                                                      {Keys::kTab, Keys::kShift},
                                                      {Keys::kTab, Keys::kAlt},
                                                      {Keys::kTab, Keys::kCtrl | Keys::kAlt},
                                                      {Keys::kEnter, 0},
                                                      {Keys::kEnter, Keys::kCtrl},
                                                      {Keys::kEnter, Keys::kAlt},
                                                      {Keys::kEscape, 0},
                                                      {Keys::kSpace, Keys::kCtrl},
                                                      {Keys::kSpace, Keys::kAlt}})
        EXPECT_NE(Why(key), "") << key.KeyCode << " " << key.Shift;
    for (const KeyStroke key : std::vector<KeyStroke>{{Keys::kTab, Keys::kCtrl},
                                                      {Keys::kTab, Keys::kCtrl | Keys::kShift},
                                                      {Keys::kEscape, Keys::kShift},
                                                      {Keys::kEscape, Keys::kCtrl},
                                                      {Keys::kSpace, Keys::kCtrl | Keys::kShift}})
        EXPECT_EQ(Why(key), "");
}

TEST(KeyRules, AKeyWithoutANameAndModifiersAloneAreNoCombination) {
    for (const KeyStroke key :
         std::vector<KeyStroke>{{0, 0}, {0, Keys::kCtrl}, {Keys::kAltAlone, 0}, {7, Keys::kCtrl}, {'E', 8}, {'E', -1}})
        EXPECT_EQ(Why(key), "This key cannot be used here.");
}

} // namespace

} // namespace tessa
