#include "groups/GroupHealth.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using Trouble = ProbeAnswer::Trouble;

/// What is said of an address after these answers: the word, and where it has moved to.
std::string Said(HealthTrail trail, const std::vector<ProbeAnswer>& answers) {
    for (const ProbeAnswer& each : answers) trail.Take(each);
    if (!trail.Next().empty()) return "asks " + ToUtf8(trail.Next());
    const HealthLine& line = trail.Line();
    return ToUtf8(WordOf(line.health)) + (line.moved.empty() ? "" : " " + ToUtf8(line.moved));
}
std::string Said(const std::vector<ProbeAnswer>& answers) { return Said(HealthTrail(u"http://a/"), answers); }

ProbeAnswer Status(int status) { return {.status = status}; }
ProbeAnswer To(int status, TextView location) { return {.status = status, .location = Text(location)}; }

TEST(GroupHealth, AnAnswerSaysHowItStands) {
    for (const auto& [status, word] : {std::pair{200, "fine"},
                                       {204, "fine"},
                                       {206, "fine"},
                                       {304, "fine"},
                                       {404, "gone"},
                                       {410, "gone"},
                                       {401, "refused"},
                                       {403, "refused"},
                                       {407, "refused"},
                                       {429, "refused"},
                                       {400, "failed"},
                                       {500, "failed"},
                                       {503, "failed"}})
        EXPECT_EQ(Said({Status(status)}), word) << status;
}

TEST(GroupHealth, TroubleSaysItToo) {
    for (const auto& [trouble, word] : {std::pair{Trouble::NoHost, "gone"},
                                        {Trouble::Refused, "refused"},
                                        {Trouble::Certificate, "certificate"},
                                        {Trouble::TimeOut, "timeout"},
                                        {Trouble::Other, "failed"}})
        EXPECT_EQ(Said({ProbeAnswer{.trouble = trouble}}), word);
}

TEST(GroupHealth, WhatHasMovedForGoodHasANewAddress) {
    EXPECT_EQ(Said({To(301, u"http://b/")}), "asks http://b/");
    EXPECT_EQ(Said({To(301, u"http://b/"), Status(200)}), "moved http://b/");
    EXPECT_EQ(Said({To(301, u"http://b/"), To(308, u"http://c/"), Status(200)}), "moved http://c/");
}

TEST(GroupHealth, ARedirectForTheMomentKeepsTheAddress) {
    for (const int status : {302, 303, 307}) EXPECT_EQ(Said({To(status, u"http://b/"), Status(200)}), "fine");
    EXPECT_EQ(Said({To(302, u"http://b/"), To(301, u"http://c/"), Status(200)}), "fine");
    EXPECT_EQ(Said({To(301, u"http://b/"), To(302, u"http://c/"), Status(200)}), "moved http://b/");
}

TEST(GroupHealth, ARedirectToWhatIsGoneIsGone) {
    EXPECT_EQ(Said({To(301, u"http://b/"), Status(404)}), "gone");
    EXPECT_EQ(Said({To(301, u"http://b/"), ProbeAnswer{.trouble = Trouble::TimeOut}}), "timeout");
}

TEST(GroupHealth, RedirectsWithoutEndFail) {
    EXPECT_EQ(Said({To(301, u"http://b/"), To(301, u"http://a/")}), "failed");
    EXPECT_EQ(Said({To(302, u"http://a/")}), "failed");
    std::vector<ProbeAnswer> answers;
    for (std::size_t at = 0; at <= HealthTrail::kMostRedirects; ++at)
        answers.push_back(To(301, u"http://a/" + Decimal(static_cast<std::int64_t>(at) + 1)));
    EXPECT_EQ(Said(answers), "failed");
    answers.pop_back();
    EXPECT_EQ(Said(answers), "asks http://a/10");
}

TEST(GroupHealth, ARedirectOutOfTheWebIsNotFollowed) { EXPECT_EQ(Said({To(301, u"ftp://b/")}), "unchecked"); }

TEST(GroupHealth, ARedirectToNowhereIsFine) { EXPECT_EQ(Said({Status(301)}), "fine"); }

TEST(GroupHealth, OnlyTheWebIsAskedFor) {
    for (const TextView address : {u"mailto:a@b", u"javascript:alert(1)", u"about:blank", u"tessaview:start", u"",
                                   u"two words", u"http:", u"ftp://a/"})
        EXPECT_EQ(Said(HealthTrail(Text(address)), {}), "unchecked") << ToUtf8(address);
    EXPECT_EQ(Said(HealthTrail(u"a.example"), {}), "asks http://a.example");
}

TEST(GroupHealth, FilesAreThereOrNot) {
    const TemporaryFolder folder;
    folder.Write("a b.html", "");
    const std::string path = folder.Path("a b.html");
    EXPECT_EQ(Said(HealthTrail(FromBytes(path)), {}), "file");
    EXPECT_EQ(Said(HealthTrail(FromBytes("file://" + folder.Path("") + "/a%20b.html#part")), {}), "file");
    EXPECT_EQ(Said(HealthTrail(u"file:///nowhere/at/all.html"), {}), "no-file");
}

TEST(GroupHealth, RequestsAreSpreadByHost) {
    EXPECT_EQ(HostOfWeb(u"HTTPS://User:p@Host.Example:8080/path?q"), u"host.example:8080");
    EXPECT_EQ(HostOfWeb(u"http://a?q"), u"a");
    EXPECT_EQ(HostOfWeb(u"file:///a"), u"");
    EXPECT_EQ(HostOfWeb(u"http:///"), u"");
}

TEST(GroupHealth, OlderCopiesAreWhereTheServiceHasThem) {
    struct Row {
        TextView service, archived;
    };
    for (const auto& [service, archived] : {
             Row{u"", u"https://web.archive.org/web/http://a/?b&c"},
             Row{u"https://old.example/%s", u"https://old.example/http://a/?b&c"},
             Row{u"https://old.example/at/", u"https://old.example/at/http://a/?b&c"},
             Row{u"https://old.example/?of=%s&x=1", u"https://old.example/?of=http%3A%2F%2Fa%2F%3Fb%26c&x=1"},
             Row{u"https://old.example/?of=", u"https://old.example/?of=http%3A%2F%2Fa%2F%3Fb%26c"},
             Row{u"https://old.example/%s?x=1", u"https://old.example/http://a/?b&c?x=1"},
             Row{u"javascript:alert('%s')", u"https://web.archive.org/web/http://a/?b&c"},
             Row{u"no service", u"https://web.archive.org/web/http://a/?b&c"},
         })
        EXPECT_EQ(ArchivedAt(service, u"http://a/?b&c"), archived) << ToUtf8(service);
}

TEST(GroupHealth, WordsSayWhatTheListShows) {
    EXPECT_EQ(WordsOf({.address = u"x", .health = Health::Moved, .moved = u"http://b/", .status = 200}),
              u"Moved for good to http://b/");
    EXPECT_EQ(WordsOf({.address = u"x", .health = Health::Gone, .moved{}, .status = 410}), u"Gone (410)");
    EXPECT_EQ(WordsOf({.address = u"x", .health = Health::Gone, .moved{}, .status = 0}), u"Gone");
}

} // namespace

} // namespace tessa
