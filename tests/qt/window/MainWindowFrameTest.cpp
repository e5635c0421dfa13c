#include "qt/window/MainWindowFrame.h"

#include "qt/strip/TabStripView.h"
#include "qt/window/StatusBarView.h"

#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

constexpr Placement kPlace{{1500}, {1050}, {9000}, {7500}}; // 100, 70, 600 x 500 pixels

TEST(MainWindowFrame, ItsTitleIsTheCaption) {
    MainWindowFrame window;
    window.SetCaption(u"TessaView 3");
    EXPECT_EQ(window.windowTitle(), QStringLiteral("TessaView 3"));
}

TEST(MainWindowFrame, APlaceGivenBeforeItIsShownHolds) {
    MainWindowFrame window;
    window.SetPlace(kPlace);
    EXPECT_EQ(window.Place(), kPlace);
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(window.Place(), kPlace);
    EXPECT_EQ(window.State(), WindowState::Normal);
}

TEST(MainWindowFrame, ASizeAloneIsTakenOver) {
    MainWindowFrame window;
    window.SetSize({9000}, {7500});
    EXPECT_EQ(window.size(), QSize(600, 500));
}

TEST(MainWindowFrame, ItsStateIsKnownBeforeAndAfterItIsShown) {
    MainWindowFrame window;
    window.SetPlace(kPlace);
    window.SetState(WindowState::Maximized);
    EXPECT_EQ(window.State(), WindowState::Maximized);
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(window.State(), WindowState::Maximized);
    window.SetState(WindowState::Normal);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.State() == WindowState::Normal; }));
    window.SetState(WindowState::Minimized);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.State() == WindowState::Minimized; }));
}

TEST(MainWindowFrame, AWindowThatIsNotShownHasNoWindowOnTheDesktop) {
    MainWindowFrame window;
    window.SetPlace(kPlace);
    (void)window.InnerHeight();
    EXPECT_EQ(window.windowHandle(), nullptr);
}

TEST(MainWindowFrame, TheInnerAreaIsWhatMenusAndBarsLeave) {
    MainWindowFrame window;
    window.menuBar()->addMenu(QStringLiteral("Menu"));
    window.addToolBar(QStringLiteral("Bar"));
    window.SetPlace(kPlace);
    EXPECT_EQ(window.InnerWidth().value, 600);
    EXPECT_LT(window.InnerHeight().value, 500);
    EXPECT_GT(window.InnerHeight().value, 300);
    const Pixels hidden = window.InnerHeight();
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(window.InnerHeight(), hidden);
}

TEST(MainWindowFrame, ItReportsItsNewSize) {
    MainWindowFrame window;
    window.SetPlace(kPlace);
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    Pixels reported;
    window.Resized.ConnectForLife([&] { reported = window.InnerWidth(); });
    window.resize(700, 500);
    EXPECT_TRUE(QTest::qWaitFor([&] { return reported.value == 700; }));
}

TEST(MainWindowFrame, TheTabsStandAtTheTopOrTheBottomOfTheirPlace) {
    MainWindowFrame window;
    TabStrip strip;
    TabStripView tabs(strip);
    window.SetPlace(kPlace);
    window.SetTabStrip(tabs);
    EXPECT_EQ(tabs.parentWidget(), window.PageArea());
    const Rect place{{0}, {0}, {600}, {400}};
    window.MoveTabStrip(place);
    const int row = tabs.RowHeight().value;
    EXPECT_EQ(tabs.geometry(), QRect(0, 0, 600, row));
    strip.SetPlacement(TabPlacement::Bottom);
    window.MoveTabStrip(place);
    EXPECT_EQ(tabs.geometry(), QRect(0, 400 - row, 600, row));
}

TEST(MainWindowFrame, TheStatusBarKeepsToTheLowerEdge) {
    MainWindowFrame window;
    StatusBar status;
    StatusBarView bar(status);
    window.SetStatusBar(bar);
    window.SetPlace(kPlace);
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.geometry().bottom(), window.rect().bottom());
    EXPECT_EQ(bar.width(), window.width());
    EXPECT_EQ(bar.height(), status.Height.value);
    EXPECT_EQ(window.InnerHeight().value, window.PageArea()->height() + bar.height()) << "for the core it is inside";
    int resized = 0;
    window.Resized.ConnectForLife([&] { ++resized; });
    status.Visible = false;
    EXPECT_FALSE(bar.isVisible());
    EXPECT_GE(resized, 1);
    EXPECT_EQ(window.InnerHeight().value, window.PageArea()->height());
    EXPECT_EQ(window.PageArea()->geometry().bottom(), window.rect().bottom());
}

TEST(MainWindowFrame, AToolbarAtTheBottomLiesAboveTheStatusBar) {
    MainWindowFrame window;
    StatusBar status;
    StatusBarView bar(status);
    window.SetStatusBar(bar);
    auto* tools = new QToolBar(QStringLiteral("Bar"));
    tools->addAction(QStringLiteral("Tool"));
    window.addToolBar(Qt::BottomToolBarArea, tools);
    window.SetPlace(kPlace);
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tools->geometry().bottom() + 1 == bar.geometry().top(); }));
    EXPECT_EQ(window.PageArea()->geometry().bottom() + 1, tools->geometry().top());
    window.resize(700, 300);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.width() == 700 && bar.geometry().bottom() == 299; }));
    EXPECT_EQ(tools->geometry().bottom() + 1, bar.geometry().top());
}

TEST(MainWindowFrame, TheStatusBarShowsTheLastOfItsTexts) {
    StatusBar status;
    status.SimpleText = u"at the start";
    StatusBarView bar(status);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.currentMessage() == QStringLiteral("at the start"); }));
    int messages = 0;
    QObject::connect(&bar, &QStatusBar::messageChanged, [&] { ++messages; });
    status.SimpleText = u"one";
    status.SimpleText = u"two";
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.currentMessage() == QStringLiteral("two"); }));
    EXPECT_EQ(messages, 1);
}

TEST(MainWindowFrame, ItIsActivatedOnceShown) {
    MainWindowFrame window;
    int activations = 0;
    window.Activated.ConnectForLife([&] { ++activations; });
    EXPECT_EQ(activations, 0);
    window.Show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return activations > 0; }));
}

/// A window that was maximised and is in the task bar now.
class MinimizedWindowTest : public testing::Test {
protected:
    void SetUp() override {
        window.SetState(WindowState::Maximized);
        window.Show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.SetState(WindowState::Minimized);
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.State() == WindowState::Minimized; }));
    }
    MainWindowFrame window;
};

TEST_F(MinimizedWindowTest, BroughtToTheForegroundItStaysMinimized) {
    window.BringToForeground({});
    QCoreApplication::processEvents();
    EXPECT_EQ(window.State(), WindowState::Minimized);
}

TEST_F(MinimizedWindowTest, ItComesBackAsLargeAsItWas) {
    window.ComeBack();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.State() == WindowState::Maximized; }));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST_F(MinimizedWindowTest, SetToNormalItIsInFrontAndMaximizedNoLonger) {
    window.SetState(WindowState::Normal);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.State() == WindowState::Normal; }));
    EXPECT_FALSE(window.windowState().testFlag(Qt::WindowMaximized));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST_F(MinimizedWindowTest, ItLaysOutWhatItHoldsWhenItComesBackInTheSameSize) {
    const QSize before = window.size();
    int reported = 0;
    window.Resized.ConnectForLife([&] { reported += window.State() != WindowState::Minimized; });
    window.ComeBack();
    EXPECT_TRUE(QTest::qWaitFor([&] { return reported > 0; }));
    EXPECT_EQ(window.size(), before);
}

TEST_F(MinimizedWindowTest, ThePermissionOfTheDesktopIsKeptUntilTheWindowComesBack) {
    window.BringToForeground("token");
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
    window.SetState(WindowState::Normal);
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token");
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST(MainWindowFrame, NothingBringsAWindowToTheScreenThatWasNotShownYetOrIsClosed) {
    MainWindowFrame window;
    const auto isAway = [&] {
        window.BringToForeground("token");
        window.ComeBack();
        return !window.isVisible() && !qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN");
    };
    EXPECT_TRUE(isAway());
    EXPECT_EQ(window.windowHandle(), nullptr);
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_FALSE(isAway());
    qunsetenv("XDG_ACTIVATION_TOKEN");
    window.Unload();
    EXPECT_TRUE(isAway());
    window.SetState(WindowState::Normal);
    EXPECT_FALSE(window.isVisible());
}

TEST(MainWindowFrame, StaysUntilAListenerUnloadsIt) {
    MainWindowFrame window;
    int asked = 0, unloads = 0;
    bool may = false;
    window.Unloads.ConnectForLife([&] { ++unloads; });
    window.QueryUnload.ConnectForLife([&] {
        ++asked;
        if (may) window.Unload();
    });
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.Close();
    EXPECT_TRUE(window.isVisible());
    may = true;
    window.Close();
    EXPECT_FALSE(window.isVisible());
    window.Close();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(unloads, 1);
}

TEST(MainWindowFrame, WhoeverEndsTheSessionUnloadsItWhileItIsAsked) {
    MainWindowFrame window;
    int unloads = 0;
    window.Unloads.ConnectForLife([&] { ++unloads; });
    window.QueryUnload.ConnectForLife([&] { window.Unload(); });
    window.Unload();
    window.Close();
    EXPECT_EQ(unloads, 1);
}

TEST(MainWindowFrame, UnloadingComesOnceAndClosesTheWindow) {
    MainWindowFrame window;
    int unloads = 0;
    window.Unloads.ConnectForLife([&] { ++unloads; });
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.Unload();
    EXPECT_FALSE(window.isVisible());
    window.Unload();
    EXPECT_EQ(unloads, 1);
}

TEST(MainWindowFrame, AWindowNeverShownUnloadsToo) {
    MainWindowFrame window;
    int unloads = 0;
    window.Unloads.ConnectForLife([&] { ++unloads; });
    window.QueryUnload.ConnectForLife([&] { window.Unload(); });
    window.Close();
    EXPECT_EQ(unloads, 1);
}

TEST(MainWindowFrame, TheScreenIsMeasuredInTwips) {
    MainWindowFrame window;
    EXPECT_EQ(window.ScreenWidth().value, window.screen()->virtualSize().width() * 15);
    EXPECT_EQ(window.ScreenHeight().value, window.screen()->virtualSize().height() * 15);
}

TEST(MainWindowFrame, ControlsMayGoBeforeOrAfterTheWindow) {
    TabStrip strip;
    StatusBar status;
    auto window = std::make_unique<MainWindowFrame>();
    auto tabs = std::make_unique<TabStripView>(strip);
    StatusBarView bar(status);
    window->SetTabStrip(*tabs);
    window->SetStatusBar(bar);
    tabs.reset();
    window->MoveTabStrip({{0}, {0}, {100}, {100}});
    window.reset();
    status.Visible = false;
    EXPECT_EQ(bar.parentWidget(), nullptr);
}

TEST(StatusBarView, TheButtonThatStopsIsThereWhileThereIsSomethingToStop) {
    MainWindowFrame window;
    StatusBar status;
    StatusBarView bar(status);
    window.SetStatusBar(bar);
    window.SetPlace(kPlace);
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    auto* button = bar.findChild<QPushButton*>(QStringLiteral("cmdStopAll"));
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->isVisible());
    status.StopAll.Visible = true;
    EXPECT_TRUE(button->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.rect().contains(button->geometry()); }))
        << "the bar is no higher than before";
    int stopped = 0;
    status.StopAll.Click.ConnectForLife([&] { ++stopped; });
    button->click();
    EXPECT_EQ(stopped, 1);
    status.StopAll.Visible = false;
    EXPECT_FALSE(button->isVisible());
}

} // namespace

} // namespace tessa::qt
