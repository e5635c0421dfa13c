#include "bar/KeyStroke.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

namespace tessa {

namespace {

constexpr std::int32_t kSums = 8; // of modifiers

std::vector<KeyStroke> AllNamed() {
    std::vector<KeyStroke> all;
    for (std::int32_t code = -1; code < 300; ++code) {
        for (std::int32_t held = 0; held < kSums; ++held) {
            if (!KeyWords::Word({code, held}).empty()) all.push_back({code, held});
        }
    }
    return all;
}

TEST(KeyStroke, IsShownAsMenusSpellIt) {
    struct Row {
        KeyStroke key;
        const char *shown, *word;
    };
    for (const Row& row :
         std::vector<Row>{{{'E', Keys::kCtrl | Keys::kShift}, "Ctrl+Shift+E", "Ctrl+Shift+E"},
                          {{'0', Keys::kCtrl}, "Ctrl+0", "Ctrl+0"},
                          {{'Q', Keys::kCtrl | Keys::kAlt | Keys::kShift}, "Ctrl+Alt+Shift+Q", "Ctrl+Alt+Shift+Q"},
                          {{Keys::kF1, 0}, "F1", "F1"},
                          {{Keys::kF12, Keys::kAlt}, "Alt+F12", "Alt+F12"},
                          {{Keys::kPlus, Keys::kCtrl}, "Ctrl++", "Ctrl+Plus"},
                          {{Keys::kMinus, Keys::kCtrl}, "Ctrl+-", "Ctrl+Minus"},
                          {{Keys::kEscape, Keys::kShift}, "Shift+Esc", "Shift+Escape"},
                          {{Keys::kPageDown, Keys::kCtrl}, "Ctrl+PgDown", "Ctrl+PageDown"},
                          {{Keys::kAltAlone, 0}, "", ""},
                          {{0, Keys::kCtrl}, "", ""},
                          {{'a', Keys::kCtrl}, "", ""},
                          {{'E', 8}, "", ""},
                          {{'E', -1}, "", ""}}) {
        EXPECT_EQ(ToUtf8(KeyWords::Shown(row.key)), row.shown);
        EXPECT_EQ(KeyWords::Word(row.key), row.word);
    }
}

TEST(KeyStroke, EveryCombinationComesBackFromItsWord) {
    std::set<std::string> words;
    std::set<Text> shown;
    for (const KeyStroke key : AllNamed()) {
        const std::string word = KeyWords::Word(key);
        EXPECT_TRUE(words.insert(word).second) << word;
        EXPECT_TRUE(shown.insert(KeyWords::Shown(key)).second) << word;
        EXPECT_EQ(KeyWords::Of(word), std::optional(key)) << word;
        EXPECT_EQ(word.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+"),
                  std::string::npos)
            << "it is a word in a list";
    }
    EXPECT_EQ(words.size(), (26U + 10U + 12U + 20U) * kSums);
}

TEST(KeyStroke, AWordThatNoFileWasGivenIsNone) {
    for (const char* word :
         {"",       "+",        "Ctrl",     "Ctrl+",    "+E",       "Ctrl++", "Ctrl++E", "Shift+Ctrl+E", "Ctrl+Ctrl+E",
          "ctrl+E", "Ctrl+e",   "Ctrl+EE",  "Ctrl E",   " E",       "E ",     "F0",      "F13",          "F01",
          "Meta+E", "Ctrl+Alt", "Ctrl+Esc", "\xC3\x84", "Ctrl+\xFF"})
        EXPECT_FALSE(KeyWords::Of(word)) << word;
    EXPECT_FALSE(KeyWords::Of(std::string_view("E\0", 2)));
}

TEST(KeyStroke, AnyBytesAreTheWordOfACombinationOrOfNone) {
    std::mt19937 random(20);
    const std::string letters = "CtrlAhifPus+-EF109 \0.\xFF";
    for (int round = 0; round < 20000; ++round) {
        std::string word(random() % 12, ' ');
        for (char& each : word) each = letters[random() % letters.size()];
        const auto key = KeyWords::Of(word);
        EXPECT_TRUE(!key || KeyWords::Word(*key) == word) << word;
    }
}

} // namespace

} // namespace tessa
