#include "settings/SettingsText.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using List = std::vector<Text>;

TEST(SettingsText, WritesPlainLinesInOrderOfTheNames) {
    EXPECT_EQ(SettingsBytes({{u"TabsUp", u"true"}, {u"LastSites", List{u"a", u"b c"}}, {u"Empty", List{}}}),
              "[General]\nEmpty=\nLastSites=\"a\", \"b c\"\nTabsUp=true\n");
}

TEST(SettingsText, BringsBackEveryText) {
    Text everyUnit;
    for (unsigned unit = 0; unit < 0x10000; ++unit) everyUnit += static_cast<char16_t>(unit);
    const Text texts[] = {u"",
                          u" ",
                          u" a ",
                          u"\"",
                          u"\"a\", \"b\"",
                          u"a,b",
                          u"\\",
                          u"\\n",
                          u"a\nb\r\nc\t",
                          u"[General]",
                          u"x=y",
                          u";",
                          u"\u20AC \U0001F600",
                          Text(1, char16_t{0}),
                          Text(1, char16_t{0xD800}),
                          Text{char16_t{0xDC00}, char16_t{0xD800}},
                          Text{char16_t{0xFEFF}},
                          everyUnit};
    for (const Text& text : texts) {
        const SettingsValues values{{u"List1", List{text}}, {u"List2", List{text, u"", text}}, {u"One", text}};
        EXPECT_EQ(ParseSettings(SettingsBytes(values)), values) << ToUtf8(text.substr(0, 20));
    }
}

TEST(SettingsText, TellsAnEmptyListFromAListWithOneEmptyEntry) {
    EXPECT_EQ(SettingsBytes({{u"L", List{u""}}}), "[General]\nL=\"\"\n");
    EXPECT_EQ(ParseSettings("L=\"\""), (SettingsValues{{u"L", List{u""}}}));
    EXPECT_EQ(ParseSettings("L="), (SettingsValues{{u"L", u""}}));
}

TEST(SettingsText, TakesWhatAnEditorLeaves) {
    EXPECT_EQ(
        ParseSettings("\xEF\xBB\xBF[General]\r\n\r\n; note\r\n# note\r\nTabsUp=false\r\nL=\"a\",\"b\" , \"c\"\r\n"),
        (SettingsValues{{u"TabsUp", u"false"}, {u"L", List{u"a", u"b", u"c"}}}));
    EXPECT_EQ(ParseSettings("A=1\nA=2"), (SettingsValues{{u"A", u"2"}}));
    EXPECT_EQ(ParseSettings(""), SettingsValues{});
}

TEST(SettingsText, RefusesALineThatItCannotUnderstand) {
    using namespace std::string_view_literals;
    for (const std::string_view bytes :
         {"nonsense"sv, "=1"sv, "A B=1"sv, "[Other]"sv, "A=\\q"sv, "A=\\"sv, "A=\\x12"sv, "A=\\x12G4"sv, "L=\"a"sv,
          "L=\"a\" \"b\""sv, "L=\"a\","sv, "L=\"a\", b"sv, "A=\xFF\xFE"sv, "\0\0\0"sv, "A=1\n\0"sv}) {
        EXPECT_FALSE(ParseSettings(bytes)) << bytes;
    }
}

} // namespace

} // namespace tessa
