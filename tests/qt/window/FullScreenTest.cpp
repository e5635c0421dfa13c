#include "qt/window/FullScreen.h"

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <cstdlib>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class FullScreenTest : public testing::Test {
protected:
    QMainWindow m_window;
    QToolBar* m_shown = m_window.addToolBar(QStringLiteral("shown"));
    QToolBar* m_hidden = m_window.addToolBar(QStringLiteral("hidden"));
    QWidget* m_inner = new QWidget;
    std::string m_changes;

    void SetUp() override {
        m_window.setCentralWidget(m_inner);
        m_window.menuBar()->addMenu(QStringLiteral("File"));
        m_hidden->hide();
        m_window.resize(600, 400);
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    }

    /// The bars that are on the screen.
    [[nodiscard]] std::string Bars() const {
        std::string all;
        if (!m_window.menuWidget()->isHidden()) all += "menu ";
        if (!m_shown->isHidden()) all += "shown ";
        if (!m_hidden->isHidden()) all += "hidden ";
        return all;
    }

    [[nodiscard]] QLabel* Hint() const { return m_inner->findChild<QLabel*>(QStringLiteral("fullScreenHint")); }
};

TEST_F(FullScreenTest, TakesTheBarsAwayAndBringsBackThoseThatWereThere) {
    FullScreen full(m_window, *m_inner);
    full.Changed.ConnectForLife([&](bool on) { m_changes += on ? "on " : "off "; });
    full.Set(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return full.On(); }));
    EXPECT_TRUE(m_window.isFullScreen());
    EXPECT_EQ(Bars(), "");
    ASSERT_NE(Hint(), nullptr);
    EXPECT_TRUE(Hint()->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::abs(Hint()->geometry().center().x() - m_inner->width() / 2) <= 1; }));
    full.Set(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !full.On(); }));
    EXPECT_EQ(Bars(), "menu shown ");
    EXPECT_EQ(Hint(), nullptr);
    EXPECT_EQ(m_changes, "on off ");
}

struct WindowFacts final : FullScreenFacts {
    [[nodiscard]] bool PageFills() const override { return fills; }
    [[nodiscard]] QString Keys() const override { return keys; }
    bool fills = false;
    QString keys;
};

TEST_F(FullScreenTest, TheHintNamesTheKeysThatLeave) {
    FullScreen full(m_window, *m_inner);
    WindowFacts facts;
    facts.keys = QStringLiteral("Ctrl+E");
    full.Heed(facts);
    for (const char* words :
         {"Press Ctrl+E to leave full screen", "Rest the pointer at the upper edge to see the menus"}) {
        full.Set(true);
        ASSERT_TRUE(QTest::qWaitFor([&] { return full.On() && Hint(); }));
        EXPECT_EQ(Hint()->text(), QLatin1String(words));
        full.Set(false);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !full.On(); }));
        facts.keys.clear();
    }
}

TEST_F(FullScreenTest, FollowsTheDesktopToo) {
    FullScreen full(m_window, *m_inner);
    m_window.showFullScreen();
    ASSERT_TRUE(QTest::qWaitFor([&] { return full.On(); }));
    m_window.showNormal();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !full.On(); }));
    EXPECT_EQ(Bars(), "menu shown ");
}

TEST_F(FullScreenTest, AMaximizedWindowIsMaximizedAfterwards) {
    m_window.showMaximized();
    FullScreen full(m_window, *m_inner);
    full.Set(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return full.On(); }));
    full.Set(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !full.On(); }));
    EXPECT_TRUE(m_window.isMaximized());
}

TEST_F(FullScreenTest, TheBarsComeWhileOneOfThemHasTheKeyboard) {
    auto* box = new QLineEdit;
    m_shown->addWidget(box);
    auto* page = new QLineEdit(m_inner);
    page->show();
    FullScreen full(m_window, *m_inner);
    full.Set(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return full.On(); }));
    QCursor::setPos(m_window.mapToGlobal(m_window.rect().center()));
    full.Reveal();
    EXPECT_EQ(Bars(), "menu shown ");
    m_window.activateWindow();
    box->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return box->hasFocus(); }));
    // A turn of the look at the bars goes by, which a menu of the same kind would end.
    page->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Bars().empty(); }));
    EXPECT_TRUE(full.On());
    full.Set(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !full.On(); }));
    EXPECT_EQ(Bars(), "menu shown ");
}

TEST_F(FullScreenTest, ThePointerThatRestsAtTheEdgeCallsTheBars) {
    FullScreen full(m_window, *m_inner);
    full.Set(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return full.On() && m_window.isActiveWindow(); }));
    const auto point = [&](QPoint at) {
        QCursor::setPos(m_window.mapToGlobal(at));
        QTest::mouseMove(m_inner, m_inner->mapFrom(&m_window, at));
    };
    const QPoint middle = m_window.rect().center(), edge(middle.x(), 0);
    point(middle);
    EXPECT_EQ(Bars(), "");
    point(edge);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Bars() == "menu shown "; }));
    point(middle);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Bars().empty(); }));
}

TEST_F(FullScreenTest, APageThatFillsTheWindowWantsNoBars) {
    FullScreen full(m_window, *m_inner);
    WindowFacts facts;
    facts.fills = true;
    full.Heed(facts);
    full.Set(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return full.On(); }));
    full.Reveal();
    EXPECT_EQ(Bars(), "");
    facts.fills = false;
    full.Reveal();
    EXPECT_EQ(Bars(), "menu shown ");
}

TEST_F(FullScreenTest, WithoutFullScreenNothingIsRevealed) {
    FullScreen full(m_window, *m_inner);
    m_shown->hide();
    full.Reveal();
    EXPECT_EQ(Bars(), "menu ");
}

TEST_F(FullScreenTest, TheHintGoesByItself) {
    FullScreen full(m_window, *m_inner);
    full.Set(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Hint() != nullptr; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Hint() == nullptr; }, 60000));
    EXPECT_TRUE(full.On());
}

} // namespace

} // namespace tessa::qt
