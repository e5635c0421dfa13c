// Tests: Covers, CrashPage, Crashes
#include "qt/questions/CrashPage.h"
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QPushButton>
#include <QTest>
#include <QWebEngineHistory>
#include <QWebEngineView>

#include <csignal>

namespace tessa::qt {

namespace {

class CrashPageTest : public ::testing::Test {
protected:
    CrashPageTest() {
        for (const char* name : {"one", "two", "three"}) {
            server.Page(QLatin1Char('/') + QLatin1String(name), QByteArray("<title>") + name + "</title><p>" + name);
        }
    }

    /// An address on a host of its own, so that each has a process of its own.
    QString Address(int host) {
        static const QStringList kPages{QStringLiteral("/one"), QStringLiteral("/two"), QStringLiteral("/three")};
        return server.Address(kPages[host - 1], QStringLiteral("127.0.0.%1").arg(host));
    }

    static bool IsLoaded(PageView& view, const char* title) {
        return WaitUntil([&] { return view.LocationName() == FromBytes(title) && !view.Busy(); });
    }

    static void Kill(PageView& view) {
        const auto process = view.Page()->renderProcessPid();
        ASSERT_GT(process, 0);
        ASSERT_EQ(::kill(static_cast<pid_t>(process), SIGKILL), 0);
    }

    static bool HasDied(PageView& view) {
        return WaitUntil([&] { return view.CrashPage() != nullptr; });
    }

    /// The engine may tell of a title before it tells of the address, with which the cover leaves.
    static bool HasLeft(PageView& view) {
        return WaitUntil([&] { return view.CrashPage() == nullptr; });
    }

    static void PressReload(PageView& view) {
        auto* reload = view.CrashPage()->findChild<QPushButton*>(QStringLiteral("cmdReload"));
        ASSERT_TRUE(reload);
        QTest::mouseClick(reload, Qt::LeftButton);
    }

    static QString Script(PageView& view, const QString& source) {
        QString result;
        view.Page()->runJavaScript(source, [&](const QVariant& value) { result = value.toString(); });
        EXPECT_TRUE(WaitUntil([&] { return !result.isEmpty(); }));
        return result;
    }

    LocalServer server;
};

class CrashPageOfOne : public CrashPageTest {
protected:
    CrashPageOfOne() {
        desk.Load(Address(1));
        EXPECT_TRUE(IsLoaded(desk.Real(), "one"));
    }
    EngineView desk;
};

TEST_F(CrashPageOfOne, StandsInThePlaceOfThePageUntilItIsReloaded) {
    auto& view = desk.Real();
    EXPECT_FALSE(view.CrashPage());
    Kill(view);
    ASSERT_TRUE(HasDied(view));
    EXPECT_TRUE(view.CrashPage()->isVisible());
    EXPECT_EQ(view.CrashPage()->geometry(), view.Widget()->geometry());
    EXPECT_EQ(ToQt(view.LocationURL()), Address(1));
    EXPECT_EQ(view.LocationName(), u"one");
    EXPECT_FALSE(view.Busy());
    EXPECT_EQ(desk.events.statusTexts.last(), u"The page has stopped working.");

    PressReload(view);
    ASSERT_TRUE(WaitUntil([&] { return server.requests.count(QStringLiteral("/one")) == 2; }));
    EXPECT_TRUE(IsLoaded(view, "one"));
    EXPECT_TRUE(HasLeft(view));
    EXPECT_EQ(desk.Script(QStringLiteral("document.title")), u"one");
    EXPECT_EQ(view.Page()->history()->count(), 1);
}

TEST_F(CrashPageOfOne, ComesAgainWhenThePageDiesAgain) {
    auto& view = desk.Real();
    for (int times = 1; times <= 3; ++times) {
        Kill(view);
        ASSERT_TRUE(HasDied(view));
        EXPECT_EQ(desk.window.findChildren<qt::CrashPage*>().size(), 1);
        PressReload(view);
        ASSERT_TRUE(WaitUntil([&] { return server.requests.count(QStringLiteral("/one")) == times + 1; }));
        ASSERT_TRUE(IsLoaded(view, "one"));
        Settle(desk.engine, view.Page());
    }
}

TEST_F(CrashPageOfOne, LeavesWhenAnotherAddressIsOpened) {
    Kill(desk.Real());
    ASSERT_TRUE(HasDied(desk.Real()));
    desk.Load(Address(2));
    EXPECT_TRUE(IsLoaded(desk.Real(), "two"));
    EXPECT_TRUE(HasLeft(desk.Real()));
}

TEST_F(CrashPageOfOne, GoingBackLeavesItToo) {
    auto& view = desk.Real();
    desk.Load(Address(2));
    ASSERT_TRUE(IsLoaded(view, "two"));
    Kill(view);
    ASSERT_TRUE(HasDied(view));
    EXPECT_EQ(view.GoBack(), Outcome::Done);
    EXPECT_TRUE(IsLoaded(view, "one"));
    EXPECT_TRUE(HasLeft(view));
}

TEST_F(CrashPageOfOne, LeavesForALoadThatWasUnderWayWhenThePageDied) {
    auto& view = desk.Real();
    server.Stall(QStringLiteral("/slow"));
    desk.Navigate(server.Address(QStringLiteral("/slow")));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/slow")); }));
    Kill(view);
    ASSERT_TRUE(HasDied(view));
    EXPECT_FALSE(view.Busy());
    server.Page(QStringLiteral("/slow"), "<title>slow</title>");
    EXPECT_EQ(view.Navigate(FromQt(server.Address(QStringLiteral("/slow")))), Outcome::Done);
    EXPECT_TRUE(IsLoaded(view, "slow"));
    EXPECT_TRUE(HasLeft(view));
}

TEST_F(CrashPageOfOne, FollowsTheSizeOfThePageAndGetsTheKeys) {
    auto& view = desk.Real();
    Kill(view);
    ASSERT_TRUE(HasDied(view));
    view.Move({{10}, {20}, {500}, {300}});
    EXPECT_EQ(view.CrashPage()->geometry(), QRect(10, 20, 500, 300));
    desk.window.activateWindow();
    view.SetFocus();
    auto* reload = view.CrashPage()->findChild<QPushButton*>(QStringLiteral("cmdReload"));
    ASSERT_TRUE(WaitUntil([&] { return reload->hasFocus(); }));
    QTest::keyClick(reload, Qt::Key_Space);
    EXPECT_TRUE(WaitUntil([&] { return server.requests.count(QStringLiteral("/one")) == 2; }));
}

TEST_F(CrashPageOfOne, AViewMayEndWhileItsPageIsDead) {
    Kill(desk.Real());
    ASSERT_TRUE(HasDied(desk.Real()));
    desk.Real().SetVisible(false);
    EXPECT_FALSE(desk.Real().Page());
    EXPECT_TRUE(WaitUntil([&] { return desk.window.findChildren<qt::CrashPage*>().isEmpty(); }));
}

class CrashPageOfMany : public CrashPageTest {
protected:
    CrashPageOfMany() {
        for (int host = 1; host <= 3; ++host) {
            desk.Open({Address(host)});
            EXPECT_TRUE(WaitUntil([&] { return server.requests.size() == host; }));
        }
        EXPECT_TRUE(IsLoaded(desk.View(2), "one"));
        EXPECT_TRUE(IsLoaded(desk.View(3), "two"));
        EXPECT_TRUE(IsLoaded(desk.View(4), "three"));
        EXPECT_TRUE(WaitUntil([&] { return Captions() == u"about:blank one two three"; }));
        for (int view = 2; view <= 4; ++view) Script(desk.View(view), QStringLiteral("window.kept = 'kept'"));
    }

    [[nodiscard]] QString Captions() {
        QStringList captions;
        for (std::size_t position = 1; position <= desk.main->pcPage.Count(); ++position)
            captions << ToQt(desk.main->pcPage.FindAt(position)->Caption());
        return captions.join(u' ');
    }

    EngineDesk desk;
};

TEST_F(CrashPageOfMany, TheOtherTabsAndItsOwnCaptionStayAsTheyAre) {
    const QString before = Captions();
    Kill(desk.View(4));
    ASSERT_TRUE(HasDied(desk.View(4)));
    EXPECT_EQ(Captions(), before);
    EXPECT_EQ(ToQt(desk.main->Tabs().AddressCombo()->Value()), Address(3));
    EXPECT_EQ(desk.main->pcPage.SelectedItem()->Tag, 4);
    for (const int other : {2, 3}) {
        EXPECT_FALSE(desk.View(other).CrashPage());
        EXPECT_EQ(Script(desk.View(other), QStringLiteral("window.kept")), u"kept");
    }
    PressReload(desk.View(4));
    EXPECT_TRUE(WaitUntil([&] { return server.requests.count(QStringLiteral("/three")) == 2; }));
    EXPECT_TRUE(IsLoaded(desk.View(4), "three"));
    EXPECT_EQ(Captions(), before);
    EXPECT_EQ(server.requests.size(), 4) << "nothing else was loaded again";
}

TEST_F(CrashPageOfMany, APageThatDiesInTheBackgroundSaysSoWhenItComesToTheFront) {
    const QString before = Captions();
    Kill(desk.View(2));
    ASSERT_TRUE(HasDied(desk.View(2)));
    EXPECT_EQ(Captions(), before);
    EXPECT_EQ(desk.main->pcPage.SelectedItem()->Tag, 4);
    EXPECT_TRUE(desk.View(4).Widget()->isVisible());
    EXPECT_FALSE(desk.View(2).CrashPage()->isVisible());
    EXPECT_TRUE(desk.main->pcPage.Find(u"Tab2")->Asks()) << "so that the user knows where to look";

    desk.main->pcPage.UserClick(desk.main->pcPage.Find(u"Tab2"));
    ASSERT_TRUE(WaitUntil([&] { return desk.View(2).CrashPage()->isVisible(); }));
    EXPECT_FALSE(desk.View(4).Widget()->isVisible());
    PressReload(desk.View(2));
    EXPECT_TRUE(WaitUntil([&] { return server.requests.count(QStringLiteral("/one")) == 2; }));
    EXPECT_TRUE(IsLoaded(desk.View(2), "one"));
}

} // namespace

} // namespace tessa::qt
