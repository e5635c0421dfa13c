// Tests: LinkRules
#include "pages/PageQuestions.h"

#include "pages/LinkRules.h"
#include "pages/SitePermissions.h"
#include "tests/fakes/FakeSettings.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

/// A page that asks; what was answered comes as "key answer", "key none" and with "!" when it is to last.
class PageQuestionsTest : public testing::Test {
protected:
    void Ask(const Text& key, const Text& asker = {}) {
        questions.Ask({.Key = key,
                       .Asker = asker,
                       .Words = key,
                       .Answers = {u"Yes", u"No"},
                       .Remember = {},
                       .Answered = [this, key](std::size_t answer, bool remembers) {
                           answers += (answers.empty() ? "" : ", ") + ToUtf8(key) + " " +
                                      (answer == PageQuestion::kDismissed ? "none" : std::to_string(answer)) +
                                      (remembers ? "!" : "");
                       }});
    }
    [[nodiscard]] std::string Shown() const { return questions.Current() ? ToUtf8(questions.Current()->Words) : "-"; }

    std::string answers;
    PageQuestions questions;
};

TEST_F(PageQuestionsTest, AreShownOneAtATime) {
    Ask(u"a");
    Ask(u"b");
    EXPECT_EQ(Shown(), "a");
    questions.Answer(0, true);
    EXPECT_EQ(Shown(), "b");
    questions.Answer(1, false);
    EXPECT_EQ(Shown(), "-");
    EXPECT_EQ(answers, "a 0!, b 1");
    questions.Answer(0, false);
    EXPECT_EQ(answers, "a 0!, b 1") << "there is nothing to answer";
}

TEST_F(PageQuestionsTest, AskedTwiceAreOneQuestionWithTwoAnswers) {
    Ask(u"a");
    Ask(u"a");
    questions.Answer(1, false);
    EXPECT_EQ(Shown(), "-");
    EXPECT_EQ(answers, "a 1, a 1");
}

TEST_F(PageQuestionsTest, AreNotMoreThanAFew) {
    for (int i = 0; i < 1000; ++i) Ask(Decimal(i));
    EXPECT_EQ(std::count(answers.begin(), answers.end(), ','),
              static_cast<std::ptrdiff_t>(1000 - PageQuestions::kMostWaiting - 1));
    EXPECT_EQ(Shown(), "0");
}

TEST_F(PageQuestionsTest, AreWithdrawnWhenThePageNoLongerAsks) {
    Ask(u"a");
    Ask(u"b");
    questions.Withdraw(u"a");
    questions.Withdraw(u"c");
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(answers, "a none");
}

TEST_F(PageQuestionsTest, AreDismissedWithThePage) {
    Ask(u"a");
    Ask(u"b");
    questions.DismissAll();
    EXPECT_EQ(answers, "a none, b none");
    {
        PageQuestions others;
        others.Ask({.Key = u"x", .Words = {}, .Answers = {}, .Remember = {}, .Answered = [this](std::size_t, bool) {
                        answers = "gone";
                    }});
    }
    EXPECT_EQ(answers, "gone") << "whoever waits is told when the page ends";
}

TEST_F(PageQuestionsTest, OfTheSiteThatComesStayWhenAllOthersAreDismissed) {
    int changes = 0;
    Ask(u"a", u"https://old");
    Ask(u"b", u"https://new");
    Ask(u"c");
    const Connection counting = questions.Changed.Connect([&] { ++changes; });
    questions.DismissAllBut(u"https://new");
    EXPECT_EQ(answers, "a none, c none");
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(changes, 1);
    questions.DismissAllBut(u"https://new");
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(changes, 1) << "nothing has changed";
}

TEST_F(PageQuestionsTest, MayBeAskedAnewWhileOneIsAnswered) {
    questions.Ask({.Key = u"a", .Words = u"a", .Answers = {}, .Remember = {}, .Answered = [this](std::size_t, bool) {
                       Ask(u"b");
                   }});
    questions.Answer(0, false);
    EXPECT_EQ(Shown(), "b");
}

TEST(SitePermissions, AreKeptAndRevoked) {
    FakeSettings settings;
    SitePermissions permissions(settings);
    EXPECT_EQ(permissions.Find(u"https://a.example", SitePermission::Camera), std::nullopt);
    permissions.Remember({u"https://a.example", SitePermission::Camera, true});
    permissions.Remember({u"https://a.example", SitePermission::Location, false});
    permissions.Remember({u"https://b.example:8443", SitePermission::Popups, true});
    SitePermissions later(settings);
    EXPECT_EQ(later.Find(u"https://a.example", SitePermission::Camera), true);
    EXPECT_EQ(later.Find(u"https://a.example", SitePermission::Location), false);
    EXPECT_EQ(later.Find(u"https://b.example", SitePermission::Popups), std::nullopt) << "another port, another site";
    later.Remember({u"https://a.example", SitePermission::Camera, false});
    EXPECT_EQ(later.All().size(), 3U);
    EXPECT_EQ(permissions.Find(u"https://a.example", SitePermission::Camera), false);
    permissions.Forget(u"https://a.example", SitePermission::Camera);
    EXPECT_EQ(later.Find(u"https://a.example", SitePermission::Camera), std::nullopt);
}

TEST(SitePermissions, AreNotKeptForWhatIsNoSite) {
    FakeSettings settings;
    SitePermissions permissions(settings);
    permissions.Remember({u"", SitePermission::Camera, true});
    permissions.Remember({u"null", SitePermission::Camera, true});
    EXPECT_TRUE(permissions.All().empty());
}

TEST(SitePermissions, AllowNoScreenForGood) {
    FakeSettings settings;
    SitePermissions permissions(settings);
    for (const auto screen : {SitePermission::Screen, SitePermission::ScreenAndSound}) {
        permissions.Remember({u"https://a.example", screen, true});
        EXPECT_EQ(permissions.Find(u"https://a.example", screen), std::nullopt);
        permissions.Remember({u"https://a.example", screen, false});
        EXPECT_EQ(permissions.Find(u"https://a.example", screen), false) << "who is not to see it need not ask";
    }
    // Remembered by an earlier version.
    ResumeNext(settings.Open()->WriteList(u"SitePermissions", {u"allow screen https://a.example"}));
    EXPECT_TRUE(permissions.All().empty());
}

TEST(SitePermissions, LeaveOutDamagedLines) {
    FakeSettings settings;
    ResumeNext(settings.Open()->WriteList(
        u"SitePermissions", {u"allow camera https://a.example", u"allow", u"allow camera ", u"permit camera https://b",
                             u"allow kitchen https://c", u"block popups https://d.example"}));
    const auto all = SitePermissions(settings).All();
    EXPECT_EQ(all, (std::vector<SiteDecision>{{u"https://a.example", SitePermission::Camera, true},
                                              {u"https://d.example", SitePermission::Popups, false}}));
}

TEST(SitePermissions, AreNotMoreThanAThousand) {
    FakeSettings settings;
    std::vector<Text> lines;
    for (int i = 0; i < 1000; ++i) lines.push_back(u"allow camera https://" + Decimal(i));
    ResumeNext(settings.Open()->WriteList(u"SitePermissions", lines));
    SitePermissions permissions(settings);
    permissions.Remember({u"https://new", SitePermission::Camera, true});
    EXPECT_EQ(permissions.All().size(), 1000U);
    EXPECT_EQ(permissions.Find(u"https://0", SitePermission::Camera), std::nullopt);
    EXPECT_EQ(permissions.Find(u"https://new", SitePermission::Camera), true);
}

TEST(LinkRules, KnowWhatCanBeSaved) {
    for (const TextView yes : {u"http://a/", u"HTTPS://a/", u"data:,x", u"blob:https://a/1"}) EXPECT_TRUE(MaySave(yes));
    for (const TextView no : {u"file:///x", u"javascript:1", u"tessaview:start", u"", u"x"}) EXPECT_FALSE(MaySave(no));
}

TEST(PageQuestions, AreRewordedWithoutBeingAskedAnew) {
    PageQuestions questions;
    int changed = 0, reworded = 0;
    questions.Changed.ConnectForLife([&] { ++changed; });
    questions.Reworded.ConnectForLife([&] { ++reworded; });
    questions.Ask({.Key = u"a", .Words = u"one", .Answers = {}, .Remember = {}, .Answered = {}});
    questions.Ask({.Key = u"b", .Words = u"other", .Answers = {}, .Remember = {}, .Answered = {}});
    questions.Reword(u"a", u"two");
    EXPECT_EQ(questions.Current()->Words, u"two");
    EXPECT_EQ(reworded, 1);
    questions.Reword(u"b", u"waits");
    questions.Reword(u"c", u"is not there");
    EXPECT_EQ(reworded, 1) << "only what is shown is shown anew";
    EXPECT_EQ(changed, 1);
    questions.Withdraw(u"a");
    EXPECT_EQ(questions.Current()->Words, u"waits");
}

} // namespace

} // namespace tessa
