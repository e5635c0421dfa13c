// Tests: CompiledRules, RuleImage, ListShelf, ListCatalogue, RuleLine, RuleText, Punycode
#include "blocking/CompiledRules.h"
#include "base/os/AtomicFile.h"
#include "blocking/ListCatalogue.h"
#include "blocking/ListShelf.h"
#include "blocking/Punycode.h"
#include "blocking/RuleSet.h"
#include "blocking/RuleText.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

bool Blocks(const RuleImage& image, const std::string& address) {
    const RuleSet rules(image);
    return rules.VerdictOn(address, rules.PageOf("https://a.example/"), RequestType::Image).Blocked;
}

TEST(CompiledRules, ComeFromTheCacheUntilAListChanges) {
    const TemporaryFolder folder;
    folder.Write("list.txt", "||ads.example^\n");
    const std::vector<ListSource> lists{{folder.Path("list.txt"), {}}, {{}, "||own.example^\n"}};
    const std::string cache = folder.Path("cache");
    const CompiledLists first = CompileLists(lists, cache), second = CompileLists(lists, cache);
    EXPECT_FALSE(first.FromCache);
    EXPECT_TRUE(second.FromCache);
    EXPECT_TRUE(Blocks(second.Image, "https://ads.example/") && Blocks(second.Image, "https://own.example/"));
    folder.Write("list.txt", "||other.example^\n");
    const CompiledLists third = CompileLists(lists, cache);
    EXPECT_FALSE(third.FromCache);
    EXPECT_TRUE(Blocks(third.Image, "https://other.example/"));
    EXPECT_FALSE(Blocks(third.Image, "https://ads.example/"));
    EXPECT_TRUE(CompileLists(lists, cache).FromCache);
}

TEST(CompiledRules, ADamagedCacheIsMadeAnew) {
    const TemporaryFolder folder;
    const std::vector<ListSource> lists{{{}, "||ads.example^\n##.ad\n"}};
    const std::string cache = folder.Path("cache");
    (void)CompileLists(lists, cache);
    const std::string good = ReadWholeFile(cache).value();
    std::vector<std::string> bad{"", "x", good.substr(0, good.size() / 2), good + "x", std::string(good.size(), '\0')};
    for (std::size_t at = 0; at < good.size(); at += 7) {
        bad.push_back(good);
        bad.back()[at] = static_cast<char>(bad.back()[at] ^ 0x10);
    }
    for (const std::string& each : bad) {
        folder.Write("cache", each);
        const CompiledLists compiled = CompileLists(lists, cache);
        EXPECT_FALSE(compiled.FromCache);
        EXPECT_TRUE(Blocks(compiled.Image, "https://ads.example/"));
    }
    EXPECT_EQ(ReadWholeFile(cache), good) << "it was not kept again";
}

TEST(CompiledRules, AListThatIsNotThereIsSaid) {
    const CompiledLists compiled = CompileLists({{"/there/is/none", {}}, {{}, "||ads.example^"}}, {});
    EXPECT_EQ(compiled.Missing, (std::vector<bool>{true, false}));
    EXPECT_TRUE(Blocks(compiled.Image, "https://ads.example/"));
    EXPECT_FALSE(Blocks(RuleImage(), "https://ads.example/"));
}

TEST(ListShelf, KeepsListsAndLooksForNewerOnesInTime) {
    const TemporaryFolder folder;
    const Text address = u"https://lists.example/a.txt";
    const std::int64_t day = 24 * 3600;
    {
        ListShelf shelf(folder.Path("shelf"));
        ASSERT_EQ(shelf.Due({address}, 1000).size(), 1U);
        ASSERT_EQ(shelf.Keep({address, u"\"tag\"", u"Mon", 1000, 1000, 0}, "||ads.example^\n"), Outcome::Done);
        EXPECT_TRUE(shelf.Due({address}, 1000 + day).empty());
        EXPECT_EQ(shelf.Due({address}, 1000 + 5 * day).size(), 1U);
    }
    ListShelf shelf(folder.Path("shelf"));
    EXPECT_EQ(shelf.Find(address), (ShelvedList{address, u"\"tag\"", u"Mon", 1000, 1000, 0}));
    EXPECT_EQ(ReadWholeFile(shelf.PathOf(address)), "||ads.example^\n");
    shelf.NoteFailure(address, 10 * day);
    EXPECT_TRUE(shelf.Due({address}, 10 * day + 60).empty());
    EXPECT_EQ(shelf.Due({address}, 10 * day + 3600).size(), 1U);
    for (int i = 0; i < 100; ++i) shelf.NoteFailure(address, 10 * day);
    EXPECT_EQ(shelf.Due({address}, 14 * day).size(), 1U) << "a server that was away for a month";
    EXPECT_EQ(shelf.Due({address}, day).size(), 1U) << "the clock was set back";
    EXPECT_EQ(ReadWholeFile(shelf.PathOf(address)), "||ads.example^\n") << "what did not come takes nothing away";
    shelf.NoteSame(address, 20 * day);
    EXPECT_TRUE(shelf.Due({address}, 21 * day).empty());
    ASSERT_EQ(RemoveFile(shelf.PathOf(address)), Outcome::Done);
    EXPECT_TRUE(shelf.Find(address).Tag.empty()) << "the whole list is needed again";
    EXPECT_EQ(shelf.Due({address}, 21 * day).size(), 1U);
}

TEST(ListShelf, OwnRulesComeLast) {
    const TemporaryFolder folder;
    ListShelf shelf(folder.Path("shelf"));
    EXPECT_EQ(shelf.OwnRules(), u"");
    ASSERT_EQ(shelf.KeepOwnRules(u"||ж.example^\n"), Outcome::Done);
    EXPECT_EQ(shelf.OwnRules(), u"||ж.example^\n");
    const auto sources = shelf.SourcesOf({u"EasyList", u"/a/list.txt"});
    ASSERT_EQ(sources.size(), 3U);
    EXPECT_EQ(sources[0].Path, shelf.PathOf(u"https://easylist.to/easylist/easylist.txt"));
    EXPECT_EQ(sources[1].Path, "/a/list.txt");
    EXPECT_EQ(sources[2].Bytes, "||\xD0\xB6.example^\n");
}

TEST(ListShelf, WhatIsNoListIsNotTaken) {
    EXPECT_TRUE(LooksLikeList("! Title\n\n||ads.example^\n"));
    EXPECT_TRUE(LooksLikeList("[Adblock Plus 2.0]\n##.ad"));
    EXPECT_TRUE(LooksLikeList("# hosts\n0.0.0.0 ads.example"));
    for (const std::string& each : {std::string(), std::string("! only words\n"), std::string(" <!DOCTYPE html><p>x"),
                                    std::string("{\"error\": 1}"), std::string("||a\0b", 5)})
        EXPECT_FALSE(LooksLikeList(each)) << each;
}

TEST(ListCatalogue, OffersListsByLanguage) {
    EXPECT_EQ(ListCatalogue::ByDesign({}), (std::vector<Text>{u"EasyList", u"EasyPrivacy"}));
    EXPECT_EQ(ListCatalogue::ByDesign({u"de-AT", u"en"}),
              (std::vector<Text>{u"EasyList", u"EasyPrivacy", u"EasyList Germany"}));
    EXPECT_EQ(ListCatalogue::ByDesign({u"sk_SK"}).back(), u"EasyList Czech and Slovak");
    for (const KnownList& each : ListCatalogue::All()) {
        EXPECT_TRUE(ListCatalogue::IsFetched(each.Address)) << ToUtf8(each.Name);
        EXPECT_EQ(ListCatalogue::Find(each.Name), &each);
        EXPECT_FALSE(each.Does.empty());
    }
}

TEST(ListCatalogue, ListsOfOnesOwnComeByHttpsOrFromFiles) {
    for (const TextView good :
         {TextView(u"https://a.example/l.txt"), TextView(u"/home/a/l.txt"), TextView(u"C:\\l.txt")})
        EXPECT_TRUE(ListCatalogue::CanBeList(good)) << ToUtf8(good);
    for (const TextView bad :
         {TextView(u""), TextView(u"http://a.example/l.txt"), TextView(u"https://"), TextView(u"l.txt"),
          TextView(u"ftp://a.example/"), TextView(u"https:///x"), TextView(u"/a\nb")})
        EXPECT_FALSE(ListCatalogue::CanBeList(bad)) << ToUtf8(bad);
}

TEST(RuleLine, EachLineIsOfOneKind) {
    const std::vector<std::pair<const char*, LineKind>> cases{{"", LineKind::Nothing},
                                                              {"   ", LineKind::Nothing},
                                                              {"! words", LineKind::Nothing},
                                                              {"# words", LineKind::Nothing},
                                                              {"####", LineKind::Nothing},
                                                              {"#", LineKind::Nothing},
                                                              {"[Adblock]", LineKind::Nothing},
                                                              {"##.ad", LineKind::Hiding},
                                                              {"###ad", LineKind::Hiding},
                                                              {"a.example#@#.ad", LineKind::Hiding},
                                                              {"||a.example^", LineKind::Network},
                                                              {"0.0.0.0 a.example", LineKind::Hosts},
                                                              {"127.0.0.1\ta.example", LineKind::Hosts},
                                                              {"127.0.0.1 localhost", LineKind::Nothing},
                                                              {"/ad/", LineKind::Network},
                                                              {"a.example#?#p:has(a)", LineKind::Unknown}};
    for (const auto& [line, kind] : cases) EXPECT_EQ(ReadRuleLine(line).Kind, kind) << line;
}

TEST(RuleLine, WhatOtherProgramsAreMeantByIsLeftOut) {
    RuleCompiler compiler;
    const ListReport report =
        compiler.AddList("\xEF\xBB\xBF||a.example^\n!#if env_firefox\n||b.example^\n!#if x\n||c.example^\n!#endif\n"
                         "!#else\n||d.example^\n!#endif\n||e.example^\n!#endif\n!#include other.txt\n");
    EXPECT_EQ(report.Network, 3U);
    EXPECT_EQ(report.Unknown, (std::map<RuleTrouble, std::size_t>{{RuleTrouble::LeftOut, 2}}));
}

TEST(Punycode, WritesOtherLettersAsAddressesDo) {
    EXPECT_EQ(HostInAscii("b\xC3\xBC"
                          "cher.example"),
              "xn--bcher-kva.example");
    EXPECT_EQ(HostInAscii("\xD0\xB6.example"), "xn--f1a.example");
    EXPECT_EQ(HostInAscii("\xE4\xBE\x8B\xE3\x81\x88.\xE3\x83\x86\xE3\x82\xB9\xE3\x83\x88"), "xn--r8jz45g.xn--zckzah");
    EXPECT_EQ(HostInAscii("a.example"), "a.example");
    EXPECT_EQ(HostInAscii("\xFF.example"), "\xFF.example");
    EXPECT_EQ(ruletext::DomainOf("WWW.Example. "), "www.example");
    for (const char* bad : {"", "*", "a b", "/x/", ".*", "a*b"}) EXPECT_EQ(ruletext::DomainOf(bad), "") << bad;
}

} // namespace

} // namespace tessa
