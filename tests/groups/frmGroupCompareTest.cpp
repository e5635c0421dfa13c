#include "groups/frmGroupCompare.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

/// The lines in words, what is ticked in brackets.
std::string Lines(const frmGroupCompare& form) {
    std::string all;
    for (const ComparedLine& each : form.lstLines.Rows()) {
        const std::string line = ToUtf8(each.What.address + u" " + form.WordsOf(each));
        all += (all.empty() ? "" : " | ") + (each.Ticked ? "[" + line + "]" : line);
    }
    return all;
}

std::string Joined(const std::vector<Text>& addresses) {
    std::string all;
    for (const Text& each : addresses) all += ToUtf8(each) + " ";
    return all;
}

TEST(GroupCompareForm, SaysWhereEachStandsAndTicksWhatIsMissing) {
    const frmGroupCompare form(u"Old.tvg", {u"http://a/", u"http://b/", u"http://c/", u"http://c"},
                               {u"http://a/", u"http://www.b/", u"http://d/"});
    EXPECT_EQ(Lines(form), "http://a/ In both | http://b/ In both, there as http://www.b/ | http://c/ Only here | "
                           "http://c Here already as http://c/ | [http://d/ Only in Old.tvg; will be added]");
    EXPECT_EQ(form.lblSummary.Caption(), u"1 only in Old.tvg, 1 only here, 1 here more than once");
    EXPECT_TRUE(form.cmdMerge.Enabled());
}

TEST(GroupCompareForm, MergingAddsWhatIsMissingAndRemovesWhatStandsAgain) {
    frmGroupCompare form(u"Old.tvg", {u"http://a/", u"http://a/#x"}, {u"http://b/", u"http://c/"});
    form.Form.Visible = true;
    form.Tick(1, true);
    form.Tick(2, false);
    form.cmdMerge.Click();
    EXPECT_EQ(Joined(form.Merged), "http://a/ http://c/ ");
    EXPECT_FALSE(form.Form.Visible());
}

TEST(GroupCompareForm, WhatMergingCannotChangeCannotBeTicked) {
    frmGroupCompare form(u"Old.tvg", {u"http://a/", u"http://b/"}, {u"http://a/", u"http://www.b/"});
    for (const std::size_t line : {0U, 1U, 9U}) form.Tick(line, true);
    EXPECT_EQ(Lines(form), "http://a/ In both | http://b/ In both, there as http://www.b/");
    EXPECT_FALSE(form.cmdMerge.Enabled());
}

TEST(GroupCompareForm, CancelLeavesTheAddressesAsTheyAre) {
    frmGroupCompare form(u"Old.tvg", {u"http://a/"}, {u"http://b/"});
    form.Form.Visible = true;
    form.cmdCancel.Click();
    EXPECT_EQ(Joined(form.Merged), "http://a/ ");
    EXPECT_FALSE(form.Form.Visible());
}

TEST(GroupCompareForm, TwoThousandAddressesAreCompared) {
    std::vector<Text> here, there;
    for (int i = 0; i < 2000; ++i) {
        here.push_back(u"http://" + Decimal(i) + u"/");
        there.push_back(u"http://www." + Decimal(i + 1000) + u"/");
    }
    frmGroupCompare form(u"Old.tvg", here, there);
    EXPECT_EQ(form.lblSummary.Caption(), u"1000 only in Old.tvg, 1000 only here, 0 here more than once");
    form.cmdMerge.Click();
    EXPECT_EQ(form.Merged.size(), 3000U);
}

} // namespace

} // namespace tessa
