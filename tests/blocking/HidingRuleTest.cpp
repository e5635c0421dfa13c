// Tests: HidingRule, HidingRules, HidingCompiler, HidingFilter
#include "blocking/RuleCompiler.h"
#include "blocking/hiding/HidingCompiler.h"
#include "blocking/hiding/HidingFilter.h"
#include "blocking/hiding/HidingRules.h"
#include "blocking/libraries/SiteDomain.h"

#include <algorithm>
#include <bit>
#include <gtest/gtest.h>
#include <string>

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
    EXPECT_EQ(Hidden("##p[id^=\"ad-frame\"]\na.example#@#p[id^=\"ad-frame\"]\n", "a.example", {"id^ad-frame"}), "| ");
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

TEST(HidingRule, KeysAreHowAttributesBeginOrWhatTheyHold) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"a[href^=\"http://ads.example/path/and/more\"]", "href^http://ads.example/p"},
        {"a[href^='http://ab']", "href^http://a"},
        {"a[href=\"/ads\"]", "href^/ads"},
        {"[id^=\"ad-frame-1\"] > p", "id^ad-frame"},
        {"div[class*=\"-advert-\"]", "class*-advert-"},
        {"div[class$=\"-advert\"]", "class*-advert"},
        {"div[class*=\"-advert-\"].b", ".b"},
        {"x > a[href*=\"?ad=1\"]", "href*?ad=1"},
        // What is shorter, or means something else than it says, or stands elsewhere.
        {"[id^=\"ads\"]", ""},
        {"[id*=\"ads\"]", ""},
        {"[href^=\"http://ads.\"]", ""},
        {"link[href^=\"http://ads.\"]", ""},
        {"a[href^=\"HTTP\" i]", ""},
        {"a[href^=http]", ""},
        {"a[href^=\" http://ads.\"]", ""},
        {"a[href^=\"http\\:\"]", ""},
        {"[class~=\"advert\"]", ""},
        {"[class|=\"advert\"]", ""},
        {"[class]", ""},
        {"[=\"advert\"]", ""},
        {"[id=\"", ""},
        {"[id=", ""},
        {"p:not([id^=\"advert\"])", ""},
        {"[onclick^=\"advert\"]", ""},
        {"[id^=\"\xC3\xA4\xC3\xA4\xC3\xA4\"]", ""}};
    for (const auto& [selector, key] : cases) EXPECT_EQ(KeyOfSelector(selector), key) << selector;
    EXPECT_TRUE(IsPartKey("id*advert"));
    for (const char* each : {".a", "#a", "id^adve", "href^/a*b", "."}) EXPECT_FALSE(IsPartKey(each)) << each;
}

TEST(HidingRule, PagesAreAskedAboutSomePartsAndAlwaysHideTheOthers) {
    std::string list;
    for (std::size_t each = 0; each < HidingCompiler::kMostParts + 5; ++each)
        list += "##p[id*=\"part-" + std::to_string(each) + "-\"]\n##b[id*=\"part-" + std::to_string(each) + "-\"]\n";
    RuleCompiler compiler;
    compiler.AddList(list);
    const HidingRules rules(*RuleImage::Read(compiler.Image(1), 1));
    EXPECT_EQ(rules.Parts().size(), HidingCompiler::kMostParts);
    EXPECT_EQ(rules.Parts().front(), "id*part-0-");
    EXPECT_EQ(rules.Always({}).size(), 10U);
    EXPECT_EQ(rules.ForKeys({"id*part-0-"}, {}).size(), 2U);
}

TEST(HidingRule, KeysAreToldFromOtherNamesByTheirFirstLetters) {
    EXPECT_EQ(StartOfKey(".advert"), ".adve");
    EXPECT_EQ(StartOfKey("#ad"), "#ad");
    EXPECT_EQ(StartOfKey("#b\xC3\xBC\xC3\xBC-x"), "#b\xC3\xBC\xC3");
    EXPECT_EQ(StartOfKey("href^http://ads."), "href^http");
    EXPECT_EQ(StartOfKey("class^ad-b"), "class^ad-b");
    EXPECT_EQ(StartOfKey("id*-advert-"), "");
}

TEST(HidingRule, RulesKnowHowTheirKeysBegin) {
    RuleCompiler compiler;
    compiler.AddList("##.advert\n##.adverse\n###box\n##a[href^=\"http://ads.\"]\n##[id*=\"-part-\"]\n##p\n"
                     "example.com##.other\n");
    const HidingRules rules(*RuleImage::Read(compiler.Image(1), 1));
    std::vector<TokenHash> expected{TokenOfKey(".adve"), TokenOfKey("#box"), TokenOfKey("href^http")};
    std::ranges::sort(expected);
    EXPECT_TRUE(std::ranges::equal(rules.KeyStarts(), expected));
}

TEST(HidingRule, ASheetHidesEachBySelf) {
    EXPECT_EQ(HidingSheet({".a", "", "p"}), ".a{display:none!important}\np{display:none!important}\n");
}

TEST(HidingRule, TheFilterForgetsNothing) {
    const auto hashOf = [](const char* kind, int number) { return TokenOfKey(kind + std::to_string(number)); };
    HidingFilter filter(1000);
    for (int each = 0; each < 1000; ++each) filter.Add(hashOf("name-", each));
    int others = 0;
    for (int each = 0; each < 1000; ++each) {
        EXPECT_TRUE(filter.MayHold(hashOf("name-", each)));
        others += filter.MayHold(hashOf("other-", each)) ? 1 : 0;
    }
    EXPECT_LT(others, 50);
    // Names that share the end of their numbers do not stand for each other.
    others = 0;
    for (int each = 0; each < 1000; ++each) others += filter.MayHold(hashOf("name-", each) ^ 0x55500000U) ? 1 : 0;
    EXPECT_LT(others, 50);
}

// As the script in the pages reads it.
bool LettersMayHold(const std::string& letters, std::uint32_t hash) {
    const int shift = std::countl_zero(static_cast<std::uint32_t>(letters.size() * 6 - 6));
    for (const std::uint32_t step : {1U, 0x9E3779B1U, 0x85EBCA6BU, 0xC2B2AE3DU, 0x27D4EB2FU, 0x165667B1U}) {
        const std::uint32_t bit = (hash * step) >> static_cast<unsigned>(shift);
        const int letter = letters.at(bit / 6);
        if ((((letter > '\\' ? letter - 1 : letter) - '(') >> (bit % 6) & 1) == 0) return false;
    }
    return true;
}

TEST(HidingRule, TheFilterSaysTheSameInLetters) {
    for (const std::size_t names : {0U, 5U, 8U, 9U, 300U, 1024U, 1025U}) {
        HidingFilter filter(names);
        for (std::uint32_t each = 0; each < names; ++each) filter.Add(each * 2654435761U);
        const std::string letters = filter.Letters();
        EXPECT_EQ(letters.find_first_not_of("()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[]^_`abcdefgh"),
                  std::string::npos);
        for (std::uint32_t each = 0; each < 5000; ++each)
            ASSERT_EQ(LettersMayHold(letters, each * 2654435761U), filter.MayHold(each * 2654435761U)) << names;
    }
}

} // namespace

} // namespace tessa
