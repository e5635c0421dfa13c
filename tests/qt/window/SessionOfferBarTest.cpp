#include "qt/window/SessionOfferBar.h"

#include "tests/fakes/FakeProgram.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <string>

namespace tessa::qt {

namespace {

Session PagesOf(std::size_t count) {
    Session session;
    session.Time = 5;
    session.Pages.assign(count, {u"http://one.example/", u"one"});
    return session;
}

/// The offer, and what its user answers: "reopen a;".
class SessionOfferBarTest : public testing::Test {
protected:
    SessionOfferBarTest() {
        offer.Reopen.ConnectForLife([this](const Text& id) { answers += "reopen " + ToUtf8(id) + ";"; });
        offer.Dismiss.ConnectForLife([this](const Text& id) { answers += "dismiss " + ToUtf8(id) + ";"; });
        offer.ShowAll.ConnectForLife([this] { answers += "all;"; });
        offer.Changed.ConnectForLife([this] { ++changed; });
    }
    void Click(const char* name) {
        QTest::mouseClick(offer.findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
    }
    QString Label(const char* name = nullptr) {
        return name ? offer.findChild<QLabel*>(QLatin1String(name))->text() : offer.findChild<QLabel*>()->text();
    }

    FakeClock clock;
    SessionOfferBar offer{nullptr, clock};
    std::string answers;
    int changed = 0;
};

TEST_F(SessionOfferBarTest, SaysHowManyPagesThereAreAndWhich) {
    EXPECT_FALSE(offer.isVisible());
    offer.Offer(u"a", PagesOf(1));
    EXPECT_TRUE(Label().contains(u"One page"));
    EXPECT_EQ(Label("lblWhich"), QStringLiteral("at 5: \u201cone\u201d"));
    offer.Offer(u"b", PagesOf(40));
    EXPECT_TRUE(Label().contains(u"40 pages"));
}

TEST_F(SessionOfferBarTest, TakesOneAnswer) {
    offer.Offer(u"a", PagesOf(1));
    Click("cmdEarlier");
    EXPECT_TRUE(offer.isVisible()) << "looking at the list is no answer";
    Click("cmdReopen");
    EXPECT_FALSE(offer.isVisible());
    offer.Offer(u"b", PagesOf(2));
    Click("cmdNotNow");
    EXPECT_FALSE(offer.isVisible());
    EXPECT_EQ(answers, "all;reopen a;dismiss b;");
    EXPECT_EQ(changed, 4);
}

TEST_F(SessionOfferBarTest, TheLastOfferIsTheOneThatIsAnswered) {
    offer.Offer(u"a", PagesOf(1));
    offer.Offer(u"b", PagesOf(1));
    Click("cmdReopen");
    EXPECT_EQ(answers, "reopen b;");
}

TEST_F(SessionOfferBarTest, AnAnswerMayBringTheNextOffer) {
    offer.Reopen.ConnectForLife([this](const Text& id) {
        answers += "next to " + ToUtf8(id) + ";";
        if (id == u"a") offer.Offer(u"b", PagesOf(1));
    });
    offer.Offer(u"a", PagesOf(1));
    Click("cmdReopen");
    EXPECT_TRUE(offer.isVisible());
    Click("cmdNotNow");
    EXPECT_EQ(answers, "reopen a;next to a;dismiss b;");
}

TEST_F(SessionOfferBarTest, IsWithdrawnWithoutAnAnswer) {
    offer.Withdraw();
    EXPECT_EQ(changed, 0);
    offer.Offer(u"a", PagesOf(1));
    offer.Withdraw();
    EXPECT_FALSE(offer.isVisible());
    EXPECT_EQ(answers, "");
    EXPECT_EQ(changed, 2);
}

} // namespace

} // namespace tessa::qt
