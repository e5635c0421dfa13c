// Tests: NetworkRule, NetworkRuleReader, RuleOptions, RuleSet, NetworkCompiler, RuleCompiler, PatternMatch
// Tests: RequestTypes, EmptyResources
// Tests: HostHashes, TokenTable, RuleTokens, SiteDomains, RuleTrouble, AskedRequest
#include "blocking/RuleCompiler.h"
#include "blocking/RuleSet.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tessa {

namespace {

RuleSet RulesOf(const std::string& list) {
    RuleCompiler compiler;
    compiler.AddList(list);
    return RuleSet(*RuleImage::Read(compiler.Image(1), 1));
}

/// "1" when it is stopped, else "0"; what is given instead behind it.
std::string Verdict(const std::string& list, const std::string& type, const std::string& page,
                    const std::string& address) {
    const RuleSet rules = RulesOf(list);
    const RuleVerdict verdict = rules.VerdictOn(address, rules.PageOf(page), RecordedTypeOf(type));
    return (verdict.Blocked ? "1" : "0") +
           (verdict.Instead == EmptyResource::None ? std::string() : " " + std::string(MediaTypeOf(verdict.Instead)));
}

struct VerdictCase {
    const char *list, *type, *page, *address, *verdict;
};

TEST(NetworkRule, PatternsFitAsTheyAreWritten) {
    const char* page = "https://a.example/";
    const std::vector<VerdictCase> cases{
        {"/ad.js", "script", page, "https://x.example/ad.js", "1"},
        {"/ad.js", "script", page, "https://x.example/AD.JS?x", "1"},
        {"/ad.js", "script", page, "https://x.example/bad.js", "0"},
        {"/Ad.js$match-case", "script", page, "https://x.example/ad.js", "0"},
        {"/Ad.js$match-case", "script", page, "https://x.example/Ad.js", "1"},
        {"||ads.example^", "script", page, "https://ads.example/", "1"},
        {"||ads.example^", "script", page, "https://x.ads.example:8080/y", "1"},
        {"||ads.example^", "script", page, "https://ads.example", "1"},
        {"||ads.example^", "script", page, "https://ads.example.org/", "0"},
        {"||ads.example^", "script", page, "https://bads.example/", "0"},
        {"||ads.example^", "script", page, "https://x.example/?ads.example/", "0"},
        {"||ads.example^", "script", page, "https://ads.example@x.example/", "0"},
        {"||ads.example/x*y|", "script", page, "https://ads.example/x1y", "1"},
        {"||ads.example/x*y|", "script", page, "https://ads.example/x1yz", "0"},
        {"||ads.example/x*y|", "script", page, "https://ads.example/xyzy", "1"},
        {"|https://ads.", "script", page, "https://ads.x.example/", "1"},
        {"|https://ads.", "script", page, "https://x.example/?u=https://ads.", "0"},
        {"swf|", "object", page, "https://x.example/a.swf", "1"},
        {"swf|", "object", page, "https://x.example/a.swf?b", "0"},
        {"/banner/*/img^", "image", page, "https://x.example/banner/foo/img", "1"},
        {"/banner/*/img^", "image", page, "https://x.example/banner/foo/bar/img?param", "1"},
        {"/banner/*/img^", "image", page, "https://x.example/banner//img/foo", "1"},
        {"/banner/*/img^", "image", page, "https://x.example/banner/img", "0"},
        {"/banner/*/img^", "image", page, "https://x.example/banner/foo/imgraph", "0"},
        {"/banner/*/img^", "image", page, "https://x.example/banner/foo/img.gif", "0"},
        {"^foo.bar^", "image", page, "https://x.example/foo.bar", "1"},
        {"^ad^^", "image", page, "https://x.example/ad/", "1"},
        {"*ad*", "image", page, "https://x.example/made", "1"},
        {"/x$y/z", "image", page, "https://x.example/x$y/z", "1"},
        {"\xD1\x80.example^", "image", page, "https://x.example/", "0"},
        {"||\xD0\xB6.example^", "image", page, "https://xn--f1a.example/x", "1"},
        {"/\xD0\xB6/*", "image", page, "https://x.example/%D0%B6/", "1"},
        {"/ad[0-9]+\\.js/", "script", page, "https://x.example/ad12.js", "1"},
        {"/ad[0-9]+\\.js/", "script", page, "https://x.example/AD12.js", "1"},
        {"/ad[0-9]+\\.js/$match-case", "script", page, "https://x.example/AD12.js", "0"},
        {"/ad[0-9]+\\.js/$image", "script", page, "https://x.example/ad12.js", "0"},
        {"/^https?:\\/\\/.*\\.(bid|club)\\/$/", "script", page, "https://x.club/", "1"},
        {"/a|b/", "script", page, "https://x.example/b", "1"},
        {"/\\.com\\/[0-9]{2,9}\\/$/$script", "script", page, "https://x.com/123/", "1"},
        {"/colou?r-ad/", "script", page, "https://x.example/color-ad", "1"},
        {"/(?i)COLOR-ad/", "script", page, "https://x.example/color-ad", "1"},
    };
    for (const VerdictCase& each : cases)
        EXPECT_EQ(Verdict(each.list, each.type, each.page, each.address), each.verdict)
            << each.list << " " << each.address;
}

TEST(NetworkRule, OptionsNarrowRulesDown) {
    const char *own = "https://www.a.example.co.uk/", *ad = "https://ads.example/x";
    const std::vector<VerdictCase> cases{
        {"||ads.example^$script", "image", own, ad, "0"},
        {"||ads.example^$script,image", "image", own, ad, "1"},
        {"||ads.example^$~script", "image", own, ad, "1"},
        {"||ads.example^$~script", "script", own, ad, "0"},
        {"||ads.example^$~script", "never heard of", own, ad, "0"},
        {"||ads.example^", "never heard of", own, ad, "1"},
        {"||ads.example^$popup", "popup", own, ad, "1"},
        {"||ads.example^$popup", "image", own, ad, "0"},
        {"||ads.example^", "popup", own, ad, "0"},
        {"||ads.example^$all", "popup", own, ad, "1"},
        {"||ads.example^", "main_frame", own, ad, "0"},
        {"||ads.example^$document", "main_frame", own, ad, "0"},
        {"||ads.example^$third-party", "image", own, ad, "1"},
        {"||ads.example^$third-party", "image", "https://www.ads.example/", ad, "0"},
        {"||ads.example^$~third-party", "image", "https://www.ads.example/", ad, "1"},
        {"||example.co.uk^$third-party", "image", own, "https://b.example.co.uk/", "0"},
        {"||github.io^$third-party", "image", "https://a.github.io/", "https://b.github.io/", "1"},
        {"||127.0.0.2^$third-party", "image", "http://127.0.0.1/", "http://127.0.0.2:80/", "1"},
        {"||ads.example^$domain=example.co.uk", "image", own, ad, "1"},
        {"||ads.example^$domain=b.example|c.example", "image", own, ad, "0"},
        {"||ads.example^$domain=~example.co.uk", "image", own, ad, "0"},
        {"||ads.example^$domain=example.co.uk|~www.a.example.co.uk", "image", own, ad, "0"},
        {"||ads.example^$domain=~example.co.uk|a.example.co.uk", "image", own, ad, "1"},
        {"||ads.example^$domain=example.*", "image", own, ad, "1"},
        {"||ads.example^$domain=example.*", "image", "https://example.org/", ad, "1"},
        {"||ads.example^$domain=example.*", "image", "https://example.b.org/", ad, "0"},
        {"*$image,domain=example.co.uk", "image", own, ad, "1"},
        {"*$image,domain=example.co.uk,denyallow=ads.example", "image", own, ad, "0"},
        {"*$image,domain=example.co.uk,to=ads.example", "image", own, ad, "1"},
        {"*$image,domain=example.co.uk,to=ads.example", "image", own, "https://x.example/", "0"},
        {"||ads.example^$SCRIPT,Domain=Example.co.uk", "script", own, ad, "1"},
        {"||ads.example^$websocket", "websocket", own, "wss://ads.example/", "1"},
        {"|ws://$other", "websocket", own, "ws://ads.example/", "1"},
        {"|wss://$other", "websocket", own, "wss://ads.example/", "1"},
        {"|ws://$other", "websocket", own, "wss://ads.example/", "0"},
        {"|ws://$other", "other", own, "https://ads.example/", "0"},
        {"|ws://$image", "websocket", own, "ws://ads.example/", "0"},
        {"||ads.example^$other", "websocket", own, "ws://ads.example/", "0"},
        {"||ads.example^$xhr", "fetch", own, ad, "1"},
        {"||ads.example^$redirect=noopjs", "script", own, ad, "1 application/javascript"},
        {"||ads.example^$rewrite=abp-resource:1x1-transparent-gif", "image", own, ad, "1 image/gif"},
        {"||ads.example^$redirect=somebodys-own.js", "script", own, ad, "1"},
        {"||ads.example^$redirect-rule=noopjs", "script", own, ad, "0"},
        {"||ads.example^$redirect-rule=noopjs\n||ads.example^", "script", own, ad, "1 application/javascript"},
        {"||ads.example^$empty", "script", own, ad, "1 text/plain"},
    };
    for (const VerdictCase& each : cases)
        EXPECT_EQ(Verdict(each.list, each.type, each.page, each.address), each.verdict)
            << each.list << " " << each.type << " " << each.page;
}

TEST(NetworkRule, ExceptionsLetThrough) {
    const char *page = "https://a.example/", *ad = "https://ads.example/x";
    const std::vector<VerdictCase> cases{
        {"||ads.example^\n@@||ads.example/x", "image", page, ad, "0"},
        {"||ads.example^\n@@||ads.example/x$script", "image", page, ad, "1"},
        {"||ads.example^$important\n@@||ads.example/x", "image", page, ad, "1"},
        {"||ads.example^\n||ads.example^$badfilter", "image", page, ad, "0"},
        {"||ads.example^$badfilter\n||ads.example^", "image", page, ad, "0"},
        {"||ads.example^$image\n||ads.example^$badfilter", "image", page, ad, "1"},
        {"||ads.example^$domain=a.example|b.example\n||ads.example^$domain=b.example|a.example,badfilter", "image",
         page, ad, "0"},
        {"||ads.example^\n@@||a.example^$document", "image", page, ad, "0"},
        {"||ads.example^\n@@||b.example^$document", "image", page, ad, "1"},
        {"||ads.example^\n@@||a.example^$genericblock", "image", page, ad, "0"},
        {"||ads.example^$domain=a.example\n@@||a.example^$genericblock", "image", page, ad, "1"},
        {"||ads.example^\n@@||a.example^$elemhide", "image", page, ad, "1"},
    };
    for (const VerdictCase& each : cases)
        EXPECT_EQ(Verdict(each.list, each.type, each.page, each.address), each.verdict) << each.list;
}

TEST(NetworkRule, HostsFilesStopHosts) {
    const std::string list = "# hosts\n127.0.0.1 localhost\n0.0.0.0 ads.example b.example # why\n::1 ip6-localhost\n";
    EXPECT_EQ(Verdict(list, "image", "https://a.example/", "https://x.ads.example/"), "1");
    EXPECT_EQ(Verdict(list, "image", "https://a.example/", "https://b.example/"), "1");
    EXPECT_EQ(Verdict(list, "image", "https://a.example/", "http://localhost/"), "0");
}

TEST(NetworkRule, APageIsExceptedFromWhatRulesSay) {
    const RuleSet rules = RulesOf("@@||a.example^$generichide\n@@||b.example^$elemhide\n@@||c.example/x$document\n"
                                  "@@||d.example^$specifichide\n@@||e.example^$genericblock\n");
    EXPECT_EQ(rules.PageOf("https://a.example/").Except, (PageExceptions{.GenericHiding = true}));
    EXPECT_EQ(rules.PageOf("https://b.example/").Except,
              (PageExceptions{.Hiding = true, .GenericHiding = true, .SpecificHiding = true}));
    EXPECT_TRUE(rules.PageOf("https://c.example/x").Except.Everything);
    EXPECT_FALSE(rules.PageOf("https://c.example/y").Except.Everything);
    EXPECT_TRUE(rules.PageOf("https://d.example/").Except.SpecificHiding);
    EXPECT_TRUE(rules.PageOf("https://e.example/").Except.GenericRules);
    EXPECT_EQ(rules.Excepted().Domains.size(), 5U);
    EXPECT_TRUE(rules.Excepted().Parts.empty());
    EXPECT_FALSE(rules.Excepted().Any);
}

TEST(NetworkRule, PagesThatNoRuleCanExceptAreKnown) {
    const auto parts = [](const char* list) { return RulesOf(list).Excepted().Parts; };
    EXPECT_EQ(parts("@@||flash.$elemhide\n"), std::vector<std::string>{"flash."});
    EXPECT_EQ(parts("@@://10.0.0.$generichide\n"), std::vector<std::string>{"://10.0.0."});
    EXPECT_EQ(parts("@@|http://a.example/*?Long-Word=1$document\n"), std::vector<std::string>{"http://a.example/"});
    EXPECT_EQ(parts("@@/Advert/x^$elemhide,match-case\n"), std::vector<std::string>{"/advert/x"});
    EXPECT_EQ(parts("@@/advert/x$image\n"), std::vector<std::string>());
    for (const char* each : {"@@/x$elemhide\n", "@@/^https:..advert.$/$elemhide\n"}) {
        EXPECT_TRUE(RulesOf(each).Excepted().Any) << each;
        EXPECT_TRUE(parts(each).empty()) << each;
    }
}

TEST(NetworkRule, UnknownRulesAreCountedAndNeverGuessed) {
    const std::vector<std::pair<const char*, RuleTrouble>> cases{
        {"||a.example^$csp", RuleTrouble::NeedsAnswers},
        {"||a.example^$removeparam=utm", RuleTrouble::NeedsAnswers},
        {"||a.example^$replace", RuleTrouble::NeedsAnswers},
        {"||a.example^$nobody-knows", RuleTrouble::UnknownOption},
        {"||a.example^$domain=", RuleTrouble::BadDomain},
        {"||a.example^$domain=/x/", RuleTrouble::BadDomain},
        {"/(?!x)y/", RuleTrouble::BadExpression},
        {"/(a/", RuleTrouble::BadExpression},
        {"*", RuleTrouble::MatchesEverything},
        {"|", RuleTrouble::MatchesEverything},
        {"two words", RuleTrouble::BadDomain},
        {"@@||a.example^$redirect-rule=noopjs", RuleTrouble::UnknownOption},
        {"0.0.0.0 #", RuleTrouble::BadHost},
    };
    for (const auto& [line, trouble] : cases) {
        RuleCompiler compiler;
        const ListReport report = compiler.AddList(line);
        EXPECT_EQ(report.Unknown, (std::map<RuleTrouble, std::size_t>{{trouble, 1}})) << line;
        EXPECT_EQ(report.Network, 0U) << line;
        EXPECT_FALSE(WordsOf(trouble).empty());
    }
    RuleCompiler compiler;
    EXPECT_EQ(compiler.AddList("||a.example^$csp=script-src 'none'\n").UnknownLines(), 1U);
}

TEST(NetworkRule, ListsThatAreMeantToBeSlowAreCutShort) {
    std::string stars, expressions, oneWord;
    for (int i = 0; i < 3000; ++i) {
        const std::string number = std::to_string(i);
        stars += "a*b" + number + "*c*d*e\n";
        expressions += "/[a-z]+x" + number + "y.*z/\n";
        oneWord += "/word/*" + number + "\n/word/*x" + number + "\n";
    }
    RuleCompiler compiler;
    EXPECT_EQ(compiler.AddList(stars).Unknown[RuleTrouble::TooSlow], 3000 - NetworkCompiler::kMostForAll);
    EXPECT_GE(RuleCompiler().AddList(expressions).Unknown[RuleTrouble::TooSlow], 2000U);
    EXPECT_EQ(RuleCompiler().AddList(oneWord).Unknown[RuleTrouble::TooSlow], 6000 - NetworkCompiler::kMostUnderAWord);
    const RuleSet rules(*RuleImage::Read(compiler.Image(1), 1));
    EXPECT_FALSE(rules
                     .VerdictOn("https://x.example/" + std::string(100000, 'a'), rules.PageOf("https://a.example/"),
                                RequestType::Image)
                     .Blocked);
}

TEST(NetworkRule, AnyBytesAreAList) {
    const std::string binary("\0\1||ads.example^\n", 16);
    RuleCompiler compiler;
    EXPECT_EQ(compiler.AddList(binary).Network, 0U);
    EXPECT_EQ(compiler.AddList("||ads.example^\r\n||cut.exam").Network, 2U);
    EXPECT_EQ(compiler.AddList(std::string(300000, 'x')).Unknown[RuleTrouble::TooLong], 1U);
    EXPECT_EQ(compiler.AddList("").Network, 0U);
    const RuleSet rules(*RuleImage::Read(compiler.Image(1), 1));
    const RuleVerdict verdict = rules.VerdictOn("https://ads.example/", rules.PageOf(""), RequestType::Image);
    EXPECT_TRUE(verdict.Blocked);
    EXPECT_EQ(verdict.By->Line, "||ads.example^");
    EXPECT_EQ(verdict.By->List, 1U);
    for (const char* address : {"", "x", "https://", "https://@:/", "http://[::1]:80/", "data:,x", "https://a..b/"})
        EXPECT_FALSE(rules.VerdictOn(address, rules.PageOf(address), RequestType::Image).Blocked) << address;
}

} // namespace

} // namespace tessa
