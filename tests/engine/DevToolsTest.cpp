// Tests: DevTools
#include "qt/page/DevTools.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QTest>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

class DevToolsTest : public testing::Test {
protected:
    LocalServer m_server;
    EngineView m_page;
    QMainWindow m_window;
    DevTools m_tools{m_window};

    void SetUp() override {
        m_server.Page(QStringLiteral("/one"), "<title>one</title>page");
        m_page.Load(m_server.Address(QStringLiteral("/one")));
        m_window.resize(900, 700);
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    }

    void TearDown() override { m_tools.Close(); }

    [[nodiscard]] QWebEnginePage* Page() const { return m_page.Real().Page(); }
    [[nodiscard]] QDockWidget* Pane() const { return m_window.findChild<QDockWidget*>(QStringLiteral("devTools")); }
};

TEST_F(DevToolsTest, OpenForAPageAndCloseForTheSameOne) {
    m_tools.Toggle(Page());
    ASSERT_NE(Pane(), nullptr);
    EXPECT_EQ(m_tools.Inspected(), Page());
    const auto* tools = Pane()->findChild<QWebEngineView*>();
    EXPECT_EQ(tools->page()->inspectedPage(), Page());
    EXPECT_TRUE(WaitUntil([&] { return tools->url().scheme() == u"devtools" && !tools->page()->isLoading(); }));
    m_tools.Toggle(Page());
    EXPECT_EQ(Pane(), nullptr);
    EXPECT_EQ(m_tools.Inspected(), nullptr);
}

TEST_F(DevToolsTest, CloseByTheirOwnButton) {
    m_tools.Toggle(Page());
    Pane()->close();
    EXPECT_TRUE(WaitUntil([&] { return Pane() == nullptr; }));
    EXPECT_EQ(m_tools.Inspected(), nullptr);
    m_tools.Toggle(Page());
    EXPECT_NE(Pane(), nullptr);
}

TEST_F(DevToolsTest, GoWithTheirPage) {
    m_tools.Toggle(Page());
    m_page.view.reset();
    EXPECT_TRUE(WaitUntil([&] { return Pane() == nullptr; }));
    EXPECT_EQ(m_tools.Inspected(), nullptr);
}

TEST_F(DevToolsTest, WithoutAPageNothingOpens) {
    m_tools.Toggle(nullptr);
    EXPECT_EQ(Pane(), nullptr);
}

} // namespace

} // namespace tessa::qt
