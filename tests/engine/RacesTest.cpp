// Tabs that open, close, load, reload, stop and die in quick succession, while events of all that are still on their
// way: whatever comes late finds nothing, and what is left works.
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/page/PageDialog.h"
#include "tests/engine/EngineDesk.h"

#include <QCoreApplication>
#include <QTimer>
#include <QWebEnginePage>
#include <csignal>
#include <random>
#include <utility>

namespace tessa::qt {

namespace {

constexpr unsigned kSeed = 20;
constexpr int kSteps = 400;
constexpr std::size_t kMostTabs = 6;

class Races : public testing::Test {
protected:
    Races() {
        server.Page(QStringLiteral("/plain"), "<title>Plain</title><p>Plain");
        server.Page(QStringLiteral("/frames"), "<title>Frames</title><iframe src=/plain></iframe><iframe src=/slow>");
        server.Page(QStringLiteral("/closes"), "<title>Closes</title><script>window.close()</script>");
        server.Page(QStringLiteral("/alerts"), "<title>Alerts</title><script>alert('Hello')</script>");
        server.Page(QStringLiteral("/goes"), "<title>Goes</title><script>location = '/plain'</script>");
        server.Page(QStringLiteral("/opens"), "<title>Opens</title><script>window.open('/plain')</script>");
        server.Redirect(QStringLiteral("/moved"), QStringLiteral("/frames"));
        server.Stall(QStringLiteral("/slow"));
        user.callOnTimeout([this] { AnswerIfAllWait(); });
        user.start(50);
    }

    /// When the engine itself shows what a page says, everything waits for the user, this test too.
    void AnswerIfAllWait() {
        if (std::exchange(m_seen, m_steps) != m_steps) return;
        for (auto* dialog : desk.window.findChildren<PageDialog*>())
            if (dialog->isVisible() && dialog->Accepted.HasListeners()) return dialog->Accepted();
    }

    std::size_t Dice(std::size_t sides) { return std::uniform_int_distribution<std::size_t>(0, sides - 1)(m_random); }

    QString Anywhere() {
        static const QStringList kPages{QStringLiteral("/plain"),  QStringLiteral("/frames"), QStringLiteral("/closes"),
                                        QStringLiteral("/alerts"), QStringLiteral("/goes"),   QStringLiteral("/opens"),
                                        QStringLiteral("/moved"),  QStringLiteral("/slow"),   QStringLiteral("/none")};
        const QString host = QStringLiteral("127.0.0.%1").arg(1 + Dice(3));
        return server.Address(kPages[static_cast<qsizetype>(Dice(static_cast<std::size_t>(kPages.size())))], host);
    }

    Tab& AnyTab() { return *desk.main->pcPage.FindAt(1 + Dice(desk.main->pcPage.Count())); }

    BrowserView& AnyView() { return desk.View(AnyTab().Tag); }

    void Open() {
        if (desk.main->pcPage.Count() >= kMostTabs) return Close();
        auto* view = desk.main->GetNewBrowser(Dice(2) ? InFront::Yes : InFront::No);
        ASSERT_TRUE(view);
        ResumeNext(view->Navigate(FromQt(Anywhere())));
    }

    void Close() {
        if (desk.main->pcPage.Count() > 1) desk.main->CloseBrowserTab(AnyTab().Tag);
    }

    void Die() {
        auto& view = static_cast<PageView&>(AnyView());
        const auto process = view.Page() ? view.Page()->renderProcessPid() : 0;
        if (process > 0) ::kill(static_cast<pid_t>(process), SIGKILL);
    }

    void Step() {
        ++m_steps;
        switch (Dice(10)) {
        case 0:
        case 1:
            return Open();
        case 2:
        case 3:
            return Close();
        case 4:
            return ResumeNext(AnyView().Navigate(FromQt(Anywhere())));
        case 5:
            return ResumeNext(AnyView().Refresh());
        case 6:
            return ResumeNext(AnyView().Stop());
        case 7:
            // There may be nothing to go back to.
            return static_cast<void>(AnyView().GoBack());
        case 8:
            return desk.main->pcPage.UserClick(&AnyTab());
        default:
            return Die();
        }
    }

    LocalServer server;
    EngineDesk desk;
    QTimer user;

private:
    std::mt19937 m_random{kSeed};
    int m_steps = 0;
    int m_seen = 0;
};

TEST_F(Races, WhateverOvertakesWhatTheProgramLivesOn) {
    for (int i = 0; i < kSteps; ++i) {
        Step();
        // Now and then the events have time to come, else they pile up.
        const int turns = Dice(4) ? 1 : 20;
        for (int turn = 0; turn < turns; ++turn) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    auto* view = desk.main->GetNewBrowser(InFront::Yes);
    ASSERT_TRUE(view);
    ResumeNext(view->Navigate(FromQt(server.Address(QStringLiteral("/plain")))));
    EXPECT_TRUE(WaitUntil([&] { return view->LocationName() == u"Plain"; }));
    for (std::size_t tab = 1; tab <= desk.main->pcPage.Count(); ++tab)
        EXPECT_TRUE(desk.main->Tabs().OpenView(desk.main->pcPage.FindAt(tab)->Tag));
}

TEST_F(Races, TheWindowClosesInTheMidstOfIt) {
    for (int i = 0; i < 60; ++i) {
        Step();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    desk.main->Form_Unload();
    EXPECT_EQ(desk.engine.PageCount(), 0U);
}

// Sent elsewhere between a page's title and the end of its load, again and again.
TEST(Overtaking, TheLastOfManyNavigationsEndsTheLoad) {
    LocalServer server;
    for (int page = 0; page < 20; ++page) {
        const QByteArray name = QByteArray::number(page);
        const QByteArray part = page % 4 == 0 ? "<iframe src=/slow></iframe>" : page % 4 == 2 ? "<img src=/slow>" : "";
        server.Page(QStringLiteral("/page%1").arg(page), "<title>" + name + "</title><p>" + name + part);
    }
    server.Stall(QStringLiteral("/slow"));
    EngineView desk;
    for (int page = 0; page < 20; ++page) {
        desk.Navigate(server.Address(QStringLiteral("/page%1").arg(page)));
        const Text title = Decimal(page);
        ASSERT_TRUE(WaitUntil([&] { return desk.view->LocationName() == title; }));
        // Every other one is left alone.
        if (page % 2 == 0) continue;
        EXPECT_TRUE(WaitUntil([&] { return !desk.view->Busy(); })) << desk.events.lines.join(u' ').toStdString();
        desk.events.Take();
    }
}

// A script that waits for a page waits for the one asked for last, whatever is left of the one before.
TEST(Overtaking, AViewThatIsSentElsewhereLoadsUntilThatHasCome) {
    LocalServer server;
    server.Page(QStringLiteral("/before"), "<title>Before</title><iframe src=/slow></iframe><p>Before");
    server.Stall(QStringLiteral("/slow"));
    server.Stall(QStringLiteral("/held"));
    EngineView desk;
    const auto isAsked = [&server](qsizetype times) { return server.requests.count(QStringLiteral("/held")) == times; };
    for (int turns = 0; turns < 40; ++turns) {
        // From another process each time, and from the same one.
        const QString host = QStringLiteral("127.0.0.%1").arg(1 + turns % 4);
        desk.Navigate(turns % 8 < 4 ? server.Address(QStringLiteral("/before"), host) : QStringLiteral("about:blank"));
        for (int turn = 0; turn < turns; ++turn) QCoreApplication::processEvents(QEventLoop::AllEvents, 2);
        desk.Navigate(server.Address(QStringLiteral("/held")));
        int unloaded = 0;
        const qsizetype asked = turns + 1;
        ASSERT_TRUE(WaitUntil([&] {
            unloaded += desk.view->Progress() != PageProgress::Loading;
            return isAsked(asked);
        })) << turns;
        Settle(desk.engine, desk.Real().Page());
        unloaded += desk.view->Progress() != PageProgress::Loading;
        EXPECT_EQ(unloaded, 0) << "after " << turns << " turns: " << desk.events.Take().toStdString();
        desk.events.Take();
    }
}

} // namespace

} // namespace tessa::qt
