#include "script/TabList.h"

#include <gtest/gtest.h>
#include <vector>

namespace tessa {

namespace {

const std::vector<ScriptTab> kTwo{
    {.number = 1, .title = "News", .address = "http://a/", .group = {}, .state = "front"},
    {.number = 12, .title = "A \"B\"\t\\\n", .address = "http://b/", .group = "/g/x.tvg", .state = "loading muted"}};

TEST(TabList, ALineATab) {
    EXPECT_EQ(TabList::Lines(kTwo),
              "1\tfront\tNews\thttp://a/\t\n12\tloading muted\tA \"B\" \\ \thttp://b/\t/g/x.tvg\n");
    EXPECT_EQ(TabList::Lines({}), "");
}

TEST(TabList, AnObjectATab) {
    EXPECT_EQ(
        TabList::Json(kTwo),
        "[{\"number\": 1, \"title\": \"News\", \"address\": \"http://a/\", \"group\": \"\", \"state\": [\"front\"]},\n"
        " {\"number\": 12, \"title\": \"A \\\"B\\\"\\t\\\\\\n\", \"address\": \"http://b/\", \"group\": \"/g/x.tvg\", "
        "\"state\": [\"loading\", \"muted\"]}]\n");
    EXPECT_EQ(TabList::Json({}), "[]\n");
}

TEST(TabList, WhatWasFoundOutOfAGroup) {
    const std::vector<ScriptTab> lines{
        {.number = 200, .title = "Moved for good to b", .address = "a", .group = "b", .state = "moved"}};
    EXPECT_EQ(TabList::CheckLines(lines), "moved\ta\tb\n");
    EXPECT_EQ(TabList::CheckJson(lines), "[{\"address\": \"a\", \"health\": \"moved\", \"status\": 200, "
                                         "\"moved\": \"b\", \"words\": \"Moved for good to b\"}]\n");
}

TEST(TabList, AnyTextIsOneOfJson) {
    EXPECT_EQ(TabList::JsonText(""), "\"\"");
    EXPECT_EQ(TabList::JsonText("\xC3\xA4 \xF0\x9F\x98\x80"), "\"\xC3\xA4 \xF0\x9F\x98\x80\"");
    EXPECT_EQ(TabList::JsonText(std::string("\0\x1F\x7F", 3)), "\"\\u0000\\u001f\\u007f\"");
    EXPECT_EQ(TabList::JsonText("\xFF"), "\"\xC3\xBF\"") << "bytes that are no UTF-8 stay readable";
}

} // namespace

} // namespace tessa
