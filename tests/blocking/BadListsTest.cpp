// Tests: RuleCompiler
// What a list may be that somebody has spoilt, or written to do harm: it costs its own rules and nothing else.
#include "base/os/AtomicFile.h"
#include "blocking/CompiledRules.h"
#include "blocking/RuleLine.h"
#include "blocking/RuleSet.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

std::string LinesOf(std::size_t count, const std::string& before, const std::string& after) {
    std::string lines;
    for (std::size_t each = 0; each < count; ++each) lines += before + std::to_string(each) + after + "\n";
    return lines;
}

/// The rules of one list.
struct OneList {
    explicit OneList(std::string_view list) {
        report = compiler.AddList(list);
        image = RuleImage::Read(compiler.Image(1), 1).value();
    }
    [[nodiscard]] bool Blocks(const std::string& address) const {
        const RuleSet rules(image);
        return rules.VerdictOn(address, rules.PageOf("https://a.example/"), RequestType::Image).Blocked;
    }
    [[nodiscard]] std::size_t Unknown(RuleTrouble trouble) const {
        const auto found = report.Unknown.find(trouble);
        return found == report.Unknown.end() ? 0 : found->second;
    }
    RuleCompiler compiler;
    ListReport report;
    RuleImage image;
};

TEST(BadLists, AHundredMegabytesAreRead) {
    const TemporaryFolder folder;
    std::string whole = "||first.example^\n" + LinesOf(60'000, "||ads", ".example^");
    while (whole.size() < 100 * kMegabyte) whole += "! " + std::string(1000, 'x') + "\n||again.example^\n";
    folder.Write("list.txt", whole + "||last.example^\n");
    const CompiledLists compiled = CompileLists({{folder.Path("list.txt"), {}}}, {});
    ASSERT_EQ(compiled.Reports.size(), 1U);
    EXPECT_FALSE(compiled.Missing[0]);
    const RuleSet rules(compiled.Image);
    for (const char* each : {"https://first.example/", "https://ads59999.example/", "https://last.example/"})
        EXPECT_TRUE(rules.VerdictOn(each, rules.PageOf("https://a.example/"), RequestType::Image).Blocked) << each;
}

TEST(BadLists, OfALongerOneTheFirstPartCounts) {
    const TemporaryFolder folder;
    std::string whole = "||first.example^\n";
    whole += std::string(RuleCompiler::kMostListBytes, '!') + "\n||last.example^\n";
    folder.Write("list.txt", whole);
    const CompiledLists compiled = CompileLists({{folder.Path("list.txt"), {}}}, {});
    const RuleSet rules(compiled.Image);
    const RulePage page = rules.PageOf("https://a.example/");
    EXPECT_TRUE(rules.VerdictOn("https://first.example/", page, RequestType::Image).Blocked);
    EXPECT_FALSE(rules.VerdictOn("https://last.example/", page, RequestType::Image).Blocked);
}

TEST(BadLists, TheLineThatIsCutDoesNotCount) {
    const TemporaryFolder folder;
    // "||a" would stop half of the web.
    const std::string start = "||first.example^\n", last = "\n||a";
    folder.Write("list.txt", start + std::string(RuleCompiler::kMostListBytes - start.size() - last.size(), '!') +
                                 last + "ds.example^\n");
    const CompiledLists compiled = CompileLists({{folder.Path("list.txt"), {}}}, {});
    const RuleSet rules(compiled.Image);
    const RulePage page = rules.PageOf("https://a.example/");
    EXPECT_TRUE(rules.VerdictOn("https://first.example/", page, RequestType::Image).Blocked);
    EXPECT_FALSE(rules.VerdictOn("https://any.example/", page, RequestType::Image).Blocked);
    EXPECT_EQ(UncutLines("||a.example^\n||b"), "||a.example^\n");
    EXPECT_EQ(UncutLines("||a.example^\r\n"), "||a.example^\r\n");
    EXPECT_EQ(UncutLines("||a.example^"), "||a.example^");
    EXPECT_EQ(UncutLines(""), "");
}

TEST(BadLists, CutAnywhereTheLinesBeforeCount) {
    const std::string list = "||ads.example^$image,domain=a.example|b.example\na.example,~b.a.example##.ad[x=\"y\"]\n"
                             "/[a-z]+banner[0-9]/$script\n@@||fine.example^$document\n0.0.0.0 tracker.example\n";
    for (std::size_t length = 0; length <= list.size(); ++length) {
        const OneList cut(std::string_view(list).substr(0, length));
        EXPECT_TRUE(length <= list.find('\n') || cut.Blocks("https://ads.example/x")) << list.substr(0, length);
        EXPECT_FALSE(cut.Blocks("https://other.example/page")) << list.substr(0, length);
    }
}

TEST(BadLists, WhatFitsEverythingStopsNothing) {
    for (const char* each : {"*",  "**",  "|",   "||",  "||*",    "|*",         "*|",       "^",    "*^*",
                             "/",  ".",   "a",   "||a", "|http*", "|https://",  "|http://", "://",  "/.*/",
                             "//", "/./", "/^/", "/$/", "/(a|)/", "/^https?:/", "http",     "https"}) {
        const OneList list(std::string(each) + "\n||ads.example^\n");
        EXPECT_FALSE(list.Blocks("https://fine.example/page.html?x=1")) << each;
        EXPECT_TRUE(list.Blocks("https://ads.example/")) << each;
    }
}

TEST(BadLists, WhatIsMeantIsLeftAlone) {
    EXPECT_TRUE(OneList("*$image\n").Blocks("https://fine.example/"));
    EXPECT_TRUE(OneList("*$domain=a.example\n").Blocks("https://fine.example/"));
    EXPECT_TRUE(OneList("/ad\n").Blocks("https://fine.example/ad"));
    EXPECT_EQ(OneList("a.example##body\n##body.ad\n##.body\n").report.Hiding, 3U);
}

TEST(BadLists, WhatHidesWholePagesOrLetsEverythingThroughDoesNothing) {
    for (const char* each : {"##body", "##BODY", "##html", "##:root", "~a.example##body", "##body > *", "@@*",
                             "@@|http", "@@||", "@@/.*/"}) {
        const OneList list(std::string(each) + "\n||ads.example^\n");
        EXPECT_EQ(list.report.UnknownLines(), 1U) << each;
        EXPECT_TRUE(list.Blocks("https://ads.example/")) << each;
    }
}

TEST(BadLists, TenThousandExpressionsAreMoreThanCount) {
    const OneList all(LinesOf(10'000, "/[a-z]+[0-9]*x", "y.*z/") + "||ads.example^\n");
    EXPECT_EQ(all.Unknown(RuleTrouble::TooSlow), 10'000 - NetworkCompiler::kMostExpressionsForAll);
    const OneList worded(LinesOf(10'000, "/\\/word", "\\/[a-z]+/") + "||ads.example^\n");
    EXPECT_EQ(worded.Unknown(RuleTrouble::TooSlow), 10'000 - NetworkCompiler::kMostExpressions);
    for (const OneList* each : {&all, &worded}) {
        EXPECT_TRUE(each->Blocks("https://ads.example/"));
        EXPECT_FALSE(each->Blocks("https://fine.example/" + std::string(100'000, 'a')));
    }
}

TEST(BadLists, ExpressionsThatNeedMuchMemoryDoNothing) {
    for (const char* each : {"/(((a{100}){100}){100}){100}/", "/(a|b|ab)*{1000}{1000}c/"}) {
        const OneList list(std::string(each) + "\n||ads.example^\n");
        EXPECT_EQ(list.Unknown(RuleTrouble::BadExpression), 1U) << each;
        EXPECT_TRUE(list.Blocks("https://ads.example/")) << each;
    }
}

TEST(BadLists, BombsOfWildcardsEnd) {
    std::string stars = "||x.example/", ends = "||x.example/";
    for (int each = 0; each < 300; ++each) stars += "*a", ends += "*a^";
    const OneList list(stars + "*b\n" + ends + "|\n" + LinesOf(1000, "*a*a*a*a*a*a*a*a*q", "*z") + "||ads.example^\n");
    EXPECT_FALSE(list.Blocks("https://x.example/" + std::string(100'000, 'a')));
    EXPECT_TRUE(list.Blocks("https://x.example/" + std::string(400, 'a') + "b"));
    EXPECT_TRUE(list.Blocks("https://ads.example/"));
}

TEST(BadLists, ACacheOfAnotherVersionIsMadeAnew) {
    const TemporaryFolder folder;
    const std::vector<ListSource> lists{{{}, "||ads.example^\n"}};
    const std::string cache = folder.Path("cache");
    (void)CompileLists(lists, cache);
    const std::string good = ReadWholeFile(cache).value();
    // Behind eight letters stand the version and the order of bytes.
    for (const std::size_t at : {std::size_t{8}, std::size_t{12}}) {
        std::string other = good;
        ++other[at];
        folder.Write("cache", other);
        EXPECT_FALSE(CompileLists(lists, cache).FromCache);
        EXPECT_EQ(ReadWholeFile(cache), good);
        EXPECT_TRUE(CompileLists(lists, cache).FromCache);
    }
}

TEST(BadLists, OfAVeryLongAddressTheBeginningCounts) {
    const std::string start = "https://x.example/", filler(RuleSet::kMostRead, 'x');
    const OneList list("/banner/\n.gif|\n/[0-9]{3}-end/\n");
    EXPECT_TRUE(list.Blocks(start + "/banner/" + filler));
    EXPECT_FALSE(list.Blocks(start + filler + "/banner/"));
    EXPECT_TRUE(list.Blocks(start + "a.gif"));
    // Where it is cut it does not end.
    EXPECT_FALSE(list.Blocks(start + filler.substr(0, filler.size() - start.size() - 4) + ".gif?x"));
    EXPECT_TRUE(list.Blocks(start + "123-end" + filler));
}

} // namespace

} // namespace tessa
