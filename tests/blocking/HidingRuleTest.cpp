// Tests: HidingRule, HidingRules, HidingCompiler, HidingFilter
#include "blocking/RuleCompiler.h"
#include "blocking/hiding/HidingFilter.h"
#include "blocking/hiding/HidingRules.h"
#include "blocking/libraries/SiteDomain.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

/// What is hidden on pages of that host with those classes and ids: selectors by sites, "|", those for all.
std::string Hidden(const std::string& list, const std::string& host, const std::vector<std::string>& keys = {}) {
    RuleCompiler compiler;
    compiler.AddList(list);
    const HidingRules rules(*RuleImage::Read(compiler.Image(1), 1));
    const SiteHidden site = rules.ForSite(HostHashes(host, SiteDomainOf(host)));
    std::string all;
    const auto add = [&all](const std::vector<std::string_view>& selectors) {
        for (const std::string_view each : selectors) all += std::string(each) + " ";
    };
    add(site.Selectors);
    all += "| ";
    add(rules.ForKeys(keys, site));
    add(rules.Always(site));
    return all;
}

TEST(HidingRule, SitesAndAllPages) {
    const std::string list =
        "##.ad\n##div[x]\na.example##.b\n~c.example##.d\na.example,~x.a.example##.e\ngoogle.*##.g\n";
    EXPECT_EQ(Hidden(list, "a.example"), ".b .e | div[x] ");
    EXPECT_EQ(Hidden(list, "x.a.example"), ".b | div[x] ");
    EXPECT_EQ(Hidden(list, "www.google.co.uk"), ".g | div[x] ");
    EXPECT_EQ(Hidden(list, "z.example", {".ad", ".d", "#ad"}), "| .ad .d div[x] ");
    EXPECT_EQ(Hidden(list, "c.example", {".ad", ".d"}), "| .ad div[x] ");
}

TEST(HidingRule, ExceptionsShowAgain) {
    const std::string list =
        "##.ad\n##.b\na.example#@#.ad\n#@#.b\nb.example##.c\nx.b.example#@#.c\n##p\nc.example#@#p\n";
    EXPECT_EQ(Hidden(list, "a.example", {".ad", ".b"}), "| p ");
    EXPECT_EQ(Hidden(list, "z.example", {".ad", ".b"}), "| .ad p ");
    EXPECT_EQ(Hidden(list, "b.example"), ".c | p ");
    EXPECT_EQ(Hidden(list, "x.b.example"), "| p ");
    EXPECT_EQ(Hidden(list, "c.example"), "| ");
}

TEST(HidingRule, WhatAStyleSheetCannotDoIsNoRule) {
    for (const char* line :
         {"a.example#?#div:-abp-has(p)", "a.example##+js(nowoif)", "a.example##^script", "##p:style(color: red)",
          "a.example#$#p { color: red }", "##p:has-text(ad)", "##p:xpath(//a)"})
        EXPECT_EQ(ReadHidingRule(line, FindHidingSign(line)).Trouble, RuleTrouble::UnknownHiding) << line;
    for (const char* line :
         {"##p{}", "##p}body{color:red", "##[x", "##p\\", "##", "##a,", "##p/*", "##x[a=\"b]", "##*", "##a;b"})
        EXPECT_EQ(ReadHidingRule(line, FindHidingSign(line)).Trouble, RuleTrouble::BadSelector) << line;
    for (const char* line : {"/ads/x##y", "https://a.example/x##y", "||a.example##b"})
        EXPECT_EQ(FindHidingSign(line).At, std::string_view::npos) << line;
}

TEST(HidingRule, KeysAreWhatTheSelectedMustHave) {
    const std::vector<std::pair<const char*, const char*>> cases{{".ad", ".ad"},
                                                                 {"#ad", "#ad"},
                                                                 {"div.a-b_c > p", ".a-b_c"},
                                                                 {"p", ""},
                                                                 {"[class=\"x.y\"]", ""},
                                                                 {".a, .b", ""},
                                                                 {"p:not(.a)", ""},
                                                                 {"p:not(.a).b", ".b"},
                                                                 {".a\\:b", ""},
                                                                 {"a[href^=\"#x\"] .k", ".k"},
                                                                 {"\xC3\xA4.\xC3\xA4", ".\xC3\xA4"}};
    for (const auto& [selector, key] : cases) EXPECT_EQ(KeyOfSelector(selector), key) << selector;
}

TEST(HidingRule, ASheetHidesEachBySelf) {
    EXPECT_EQ(HidingSheet({".a", "", "p"}), ".a{display:none!important}\np{display:none!important}\n");
}

TEST(HidingRule, TheFilterForgetsNothing) {
    HidingFilter filter(1000);
    for (std::uint32_t each = 0; each < 1000; ++each) filter.Add(each * 2654435761U);
    int others = 0;
    for (std::uint32_t each = 0; each < 1000; ++each) {
        EXPECT_TRUE(filter.MayHold(each * 2654435761U));
        others += filter.MayHold(each * 2654435761U + 12345) ? 1 : 0;
    }
    EXPECT_LT(others, 50);
    EXPECT_EQ(filter.Bytes().size() & (filter.Bytes().size() - 1), 0U);
}

} // namespace

} // namespace tessa
