#include "qt/base/DockedPanel.h"

#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// A window with a page and a panel beside it.
class DockedPanelTest : public testing::Test {
protected:
    DockedPanelTest() {
        m_page = new QPushButton;
        m_window.setCentralWidget(m_page);
        m_window.resize(900, 600);
        m_window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_panel.Dismissed.ConnectForLife([this] { ++m_dismissed; });
        m_panel.KeyboardFree.ConnectForLife([this] { ++m_free; });
    }
    void Open() {
        m_box = new QLineEdit;
        m_panel.Open(QStringLiteral("Notes"), *m_box);
    }

    QMainWindow m_window;
    QPushButton* m_page = nullptr;
    QPointer<QLineEdit> m_box;
    DockedPanel m_panel{m_window, QStringLiteral("notes"), {}};
    int m_dismissed = 0, m_free = 0;
};

TEST_F(DockedPanelTest, IsNotThereWhileItIsClosed) {
    EXPECT_EQ(m_panel.Get(), nullptr);
    m_panel.SetWidth(300);
    m_panel.Close();
    EXPECT_TRUE(m_window.findChildren<QDockWidget*>().empty());
    Open();
    ASSERT_NE(m_panel.Get(), nullptr);
    EXPECT_TRUE(m_box->isVisible());
    EXPECT_EQ(m_panel.Get()->windowTitle(), QStringLiteral("Notes"));
    m_panel.SetWidth(300);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_panel.Get()->width() == 300; }));
    m_panel.Close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_box; }));
}

TEST_F(DockedPanelTest, AnotherMayOpenBeforeTheFirstIsGone) {
    Open();
    m_panel.Close();
    Open();
    EXPECT_EQ(m_window.findChildren<QDockWidget*>(QStringLiteral("notes")).size(), 1);
    EXPECT_TRUE(m_box->isVisible());
}

TEST_F(DockedPanelTest, EscapeAndItsButtonAskToCloseIt) {
    Open();
    m_box->setFocus();
    QTest::keyClick(m_box, Qt::Key_Escape);
    EXPECT_EQ(m_dismissed, 1);
    m_panel.Get()->close();
    EXPECT_EQ(m_dismissed, 2);
    EXPECT_TRUE(m_box->isVisible()) << "it is its owner who closes it";
    QTest::keyClick(m_box, Qt::Key_A);
    EXPECT_EQ(m_box->text(), QStringLiteral("a"));
}

TEST_F(DockedPanelTest, SaysThatTheKeyboardIsFreeOnlyIfItHadIt) {
    Open();
    m_page->setFocus();
    m_panel.Close();
    EXPECT_EQ(m_free, 0);
    Open();
    m_box->setFocus();
    m_panel.Close();
    EXPECT_EQ(m_free, 1);
}

} // namespace

} // namespace tessa::qt
