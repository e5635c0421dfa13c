// Tests: PageFullScreen, PageSurface
#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

/// A page with a button that fills the screen, in a window that has more than the page.
class PageFullScreen : public testing::Test {
protected:
    PageFullScreen() {
        desk.host.barHeight = 100;
        server.Page(QStringLiteral("/page"),
                    "<title>film</title><p>words</p><div id=film><button id=full onclick='film.requestFullscreen()'>"
                    "full</button></div>");
        desk.Load(server.Address(QStringLiteral("/page")));
    }
    void Enter() {
        desk.ClickOn(QStringLiteral("full"));
        ASSERT_TRUE(WaitUntil([this] { return IsFull(); }));
    }
    [[nodiscard]] bool IsFull() { return PageThinksSo() && View().geometry() == desk.window.rect(); }
    [[nodiscard]] bool IsBack() {
        return !PageThinksSo() && View().geometry() == desk.window.rect().adjusted(0, 100, 0, 0);
    }
    bool PageThinksSo() { return desk.Script(QStringLiteral("!!document.fullscreenElement")) == u"true"; }
    [[nodiscard]] QWebEngineView& View() const { return *desk.Real().Widget(); }

    LocalServer server;
    EngineView desk;
};

TEST_F(PageFullScreen, FillsTheWindowSaysHowToLeaveAndLeavesByEscape) {
    ASSERT_TRUE(IsBack());
    Enter();
    EXPECT_TRUE(desk.host.windowIsFull);
    const auto* hint = desk.window.findChild<QLabel*>(QStringLiteral("pageFullScreenHint"));
    ASSERT_NE(hint, nullptr);
    EXPECT_EQ(hint->text(),
              QStringLiteral("127.0.0.1:%1 fills the screen. Press Esc to leave.").arg(server.serverPort()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(WaitUntil([this] { return IsBack(); }));
    EXPECT_FALSE(desk.host.windowIsFull);
    EXPECT_EQ(desk.window.findChild<QLabel*>(QStringLiteral("pageFullScreenHint")), nullptr);
}

TEST_F(PageFullScreen, LeavesAWindowThatWasFullAsItWas) {
    desk.host.windowIsFull = true;
    Enter();
    desk.Script(QStringLiteral("document.exitFullscreen(); 1"));
    EXPECT_TRUE(WaitUntil([this] { return IsBack(); }));
    EXPECT_TRUE(desk.host.windowIsFull);
}

TEST_F(PageFullScreen, NeedsAPerson) {
    desk.Script(QStringLiteral("film.requestFullscreen().catch(() => document.title = 'refused'); 1"));
    EXPECT_TRUE(WaitUntil([this] { return desk.Real().Page()->title() == u"refused"; }));
    EXPECT_TRUE(IsBack());
}

TEST_F(PageFullScreen, EndsWhenThePageAsksSomething) {
    Enter();
    desk.Script(QStringLiteral("navigator.geolocation.getCurrentPosition(() => {}); 1"));
    EXPECT_TRUE(WaitUntil([this] { return desk.Real().Questions()->questions.Current() != nullptr; }));
    EXPECT_TRUE(WaitUntil([this] { return !PageThinksSo(); }));
    EXPECT_EQ(View().parentWidget(), &desk.window);
    EXPECT_FALSE(desk.host.windowIsFull);
    EXPECT_TRUE(desk.Real().Questions()->bar->isVisible());
}

TEST_F(PageFullScreen, EndsWhenAnotherTabComesToTheFront) {
    Enter();
    EventRecorder others;
    const auto other = desk.engine.Create(2, others, Privacy::Ordinary);
    other->BringToFront();
    EXPECT_TRUE(WaitUntil([this] { return !PageThinksSo() && View().isHidden(); }));
    EXPECT_FALSE(desk.host.windowIsFull);
}

TEST_F(PageFullScreen, EndsWithItsTab) {
    Enter();
    desk.view.reset();
    EXPECT_FALSE(desk.host.windowIsFull);
}

} // namespace

} // namespace tessa::qt
