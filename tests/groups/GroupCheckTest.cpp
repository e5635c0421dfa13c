#include "groups/GroupCheck.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

/// Notes what is asked for, and answers when the test says so.
class SlowProbe final : public AddressProbe {
public:
    void Ask(const Text& address, std::function<void(const ProbeAnswer&)> answered) override {
        open.emplace_back(address, std::move(answered));
    }
    void StopAll() override { open.clear(); }

    /// The addresses that wait for answers, with blanks between.
    [[nodiscard]] std::string Open() const {
        std::string all;
        for (const auto& each : open) all += (all.empty() ? "" : " ") + ToUtf8(each.first);
        return all;
    }
    /// Answers the one that was asked for first.
    void Answer(const ProbeAnswer& answer) {
        const auto first = open.front();
        open.erase(open.begin());
        first.second(answer);
    }
    std::vector<std::pair<Text, std::function<void(const ProbeAnswer&)>>> open;
};

std::string Words(const GroupCheck& check) {
    std::string all;
    for (const HealthLine& each : check.Lines()) all += (all.empty() ? "" : " ") + ToUtf8(WordOf(each.health));
    return all;
}

TEST(GroupCheck, EightHostsAtATimeAndOfEachOne) {
    SlowProbe probe;
    std::vector<Text> addresses{u"http://a/1", u"http://a/2"};
    for (char16_t host = u'b'; host <= u'k'; ++host) addresses.push_back(u"http://" + Text(1, host) + u"/");
    GroupCheck check(probe, addresses);
    check.Start();
    EXPECT_EQ(probe.Open(), "http://a/1 http://b/ http://c/ http://d/ http://e/ http://f/ http://g/ http://h/");
    probe.Answer({.status = 200});
    EXPECT_EQ(probe.Open(), "http://b/ http://c/ http://d/ http://e/ http://f/ http://g/ http://h/ http://a/2");
    EXPECT_EQ(check.Known(), 1U);
    while (!probe.open.empty()) probe.Answer({.status = 200});
    EXPECT_TRUE(check.Done());
    EXPECT_EQ(check.Known(), 12U);
}

TEST(GroupCheck, TheListHasTheOrderOfTheGroupAndEachOnce) {
    SlowProbe probe;
    GroupCheck check(probe, {u"http://a/", u"mailto:x@y", u"http://b/", u"http://a/"});
    check.Start();
    EXPECT_EQ(check.All(), 3U);
    EXPECT_EQ(check.Known(), 1U);
    probe.Answer({.status = 404});
    probe.Answer({.status = 301, .location = u"http://c/"});
    EXPECT_EQ(probe.Open(), "http://c/") << "followed";
    probe.Answer({.status = 200});
    EXPECT_EQ(Words(check), "gone unchecked moved");
}

TEST(GroupCheck, ProgressIsToldForEach) {
    SlowProbe probe;
    GroupCheck check(probe, {u"http://a/", u"http://b/"});
    std::string told;
    check.Progress.ConnectForLife([&] { told += std::to_string(check.Known()) + " "; });
    check.Start();
    probe.Answer({.status = 200});
    probe.Answer({.status = 200});
    EXPECT_EQ(told, "1 2 ");
}

TEST(GroupCheck, NothingToAskForIsDoneAtOnce) {
    SlowProbe probe;
    GroupCheck check(probe, {});
    bool told = false;
    check.Progress.ConnectForLife([&] { told = true; });
    check.Start();
    EXPECT_TRUE(told && check.Done());
}

TEST(GroupCheck, StoppedTheRestIsUnchecked) {
    SlowProbe probe;
    GroupCheck check(probe, {u"http://a/", u"http://b/", u"http://b/2"});
    check.Start();
    probe.Answer({.status = 200});
    check.Stop();
    EXPECT_TRUE(check.Done());
    EXPECT_TRUE(probe.open.empty());
    EXPECT_EQ(Words(check), "fine unchecked unchecked");
}

TEST(GroupCheck, TwoThousandAddressesAreAllAskedFor) {
    SlowProbe probe;
    std::vector<Text> addresses;
    for (int at = 0; at < 2000; ++at) addresses.push_back(u"http://host" + Decimal(at % 50) + u"/" + Decimal(at));
    GroupCheck check(probe, addresses);
    check.Start();
    while (!probe.open.empty()) {
        ASSERT_LE(probe.open.size(), GroupCheck::kMostHosts);
        probe.Answer({.status = 200});
    }
    EXPECT_EQ(check.Known(), 2000U);
}

class GroupMendingTest : public testing::Test {
protected:
    const std::string kBefore =
        "; mine\r\n[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n[Other]\r\nurl1=http://a/\r\n";
    GroupMendingTest() { folder.Write("a.tvg", kBefore); }
    TemporaryFolder folder;
    const Text file = folder.PathText("a.tvg");
};

TEST_F(GroupMendingTest, ReplacesAndRemovesAndLeavesTheRest) {
    EXPECT_TRUE(GroupMending::Change(file, {{u"http://a/", u"https://a/"}, {u"http://b/", u""}}));
    EXPECT_EQ(folder.Read("a.tvg"), "; mine\r\n[TessaGroup]\r\nurl1=https://a/\r\n[Other]\r\nurl1=http://a/\r\n");
}

struct MendedPanes {
    const char *panes, *places;
    std::map<Text, Text> changes;
    const char* mended;
};

// The pages are a, b, c and again a, in this order unless the plan says otherwise.
TEST_F(GroupMendingTest, PanesGoWithTheirPages) {
    const Text a = u"http://a/", b = u"http://b/", c = u"http://c/", z = u"http://z/";
    const std::vector<MendedPanes> table{
        {"h(1 v(2 3))", "", {{b, u""}}, "h(1 2)"},
        {"h(1 v(2 3))", "", {{b, z}}, "h(1 v(2 3))"},
        {"h(1 v(2 3))", "", {{a, u""}}, "v(1 2)"},
        {"h(1 v(2 3))", "", {{a, z}, {b, u""}}, "h(1 2)"},
        {"h(2 3)", "", {{a, b}, {b, c}, {c, a}}, "h(2 3)"},
        {"h(1 2 3 4)", "", {{b, u""}, {c, u""}}, "h(1 2)"},
        {"h(3 4)", "", {{c, u""}}, "none"},
        {"h(1 2); v(3 4)", "", {{b, u""}}, "v(2 3)"},
        {"h(1 2)", "page1=first http://c/\r\n", {{c, z}}, "h(1 2)"},
        {"h(1 2)", "page1=first http://c/\r\n", {{a, u""}}, "none"},
        {"h(1 3)", "page1=first http://c/\r\n", {{a, u""}}, "h(1 2)"},
        {"none", "", {{b, u""}}, "none"},
    };
    for (const MendedPanes& each : table) {
        folder.Write("p.tvg", "[TessaGroup]\r\n1=http://a/\r\n2=http://b/\r\n3=http://c/\r\n4=http://a/\r\n"
                              "[TessaView]\r\npanes=" +
                                  std::string(each.panes) + "\r\n" + each.places);
        EXPECT_TRUE(GroupMending::Change(folder.PathText("p.tvg"), each.changes));
        const std::string mended = folder.Read("p.tvg");
        EXPECT_NE(mended.find("panes=" + std::string(each.mended) + "\r\n"), std::string::npos)
            << each.panes << each.places << "\n"
            << mended;
    }
}

TEST_F(GroupMendingTest, WhatStandsThereNoMoreIsNotChanged) {
    EXPECT_TRUE(GroupMending::Change(file, {{u"http://c/", u"http://d/"}}));
    EXPECT_EQ(folder.Read("a.tvg"), kBefore);
}

TEST_F(GroupMendingTest, IsTakenBackUnlessSomebodyElseHasWritten) {
    const auto before = GroupMending::Change(file, {{u"http://a/", u""}});
    ASSERT_TRUE(before);
    EXPECT_EQ(GroupMending::Undo(file, *before), Outcome::Done);
    EXPECT_EQ(folder.Read("a.tvg"), kBefore);
    const auto again = GroupMending::Change(file, {{u"http://a/", u""}});
    folder.Write("a.tvg", "[TessaGroup]\r\n");
    EXPECT_EQ(GroupMending::Undo(file, *again), Outcome::Failed);
    EXPECT_EQ(folder.Read("a.tvg"), "[TessaGroup]\r\n");
}

TEST_F(GroupMendingTest, AFileThatHasGoneIsNotMadeAgain) {
    EXPECT_FALSE(GroupMending::Change(folder.PathText("none.tvg"), {{u"http://a/", u""}}));
    EXPECT_EQ(folder.Files(), 1U);
}

} // namespace

} // namespace tessa
