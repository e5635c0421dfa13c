// Tests: PassageLines
#include "qt/history/OpenPagesPanel.h"

#include "qt/history/PassageLines.h"
#include "tests/history/ReadingDesk.h"

#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QTest>

namespace tessa::qt {

namespace {

class OpenPagesPanelTest : public testing::Test {
protected:
    OpenPagesPanelTest() {
        m_desk.Read(1, u"http://a/", u"pApples are red|pPears are green");
        m_desk.Read(2, u"http://b/", u"pMore apples");
        m_window.resize(900, 600);
        m_window.setCentralWidget(new QWidget);
        m_window.show();
        m_desk.Click(u"xtrSearchOpenPages");
    }
    QLineEdit* Words() { return m_window.findChild<QLineEdit*>(QStringLiteral("txtWords")); }
    QListWidget* List() { return m_window.findChild<QListWidget*>(QStringLiteral("lstFound")); }
    /// The lines: "Title|passage".
    QString Lines() {
        QStringList lines;
        for (int row = 0; row < List()->count(); ++row) lines << List()->item(row)->text();
        return lines.join(u'|');
    }

    ReadingDesk m_desk{2};
    QMainWindow m_window;
    OpenPagesPanel m_panel{m_desk.main.OpenPagesPanel(), m_window};
};

TEST_F(OpenPagesPanelTest, WhatIsTypedIsFound) {
    ASSERT_NE(Words(), nullptr);
    QTest::keyClicks(Words(), QStringLiteral("apples"));
    EXPECT_EQ(Lines(), QStringLiteral("Title of http://a/|Apples are red|Title of http://b/|More apples"));
    EXPECT_EQ(m_window.findChild<QLabel*>(QStringLiteral("lblCount"))->text(), QStringLiteral("2 pages"));
    EXPECT_EQ(List()->item(1)->data(PassageLines::kMarks).toList(), (QVariantList{0, 6}));
    EXPECT_TRUE(List()->item(0)->data(PassageLines::kIsPage).toBool());
}

TEST_F(OpenPagesPanelTest, TheKeyboardGoesThroughTheListAndOpens) {
    QTest::keyClicks(Words(), QStringLiteral("more"));
    QTest::keyClick(Words(), Qt::Key_Down);
    EXPECT_EQ(List()->currentRow(), 0);
    QTest::keyClick(List(), Qt::Key_Down);
    QTest::keyClick(List(), Qt::Key_Return);
    EXPECT_EQ(m_desk.Strip(), "1 [2*]");
    EXPECT_EQ(m_desk.Marked(2), "[More apples]");
    QTest::keyClick(List(), Qt::Key_Up);
    QTest::keyClick(List(), Qt::Key_Up);
    EXPECT_FALSE(List()->hasFocus());
}

TEST_F(OpenPagesPanelTest, EscapeAndTheCrossCloseIt) {
    bool focused = false;
    m_panel.FocusPage().ConnectForLife([&focused] { focused = true; });
    QTest::keyClick(Words(), Qt::Key_Escape);
    EXPECT_FALSE(m_desk.main.OpenPagesPanel().Form.Visible());
    EXPECT_FALSE(m_desk.Tool(u"xtrSearchOpenPages").Checked());
    m_desk.Click(u"xtrSearchOpenPages");
    auto* pane = m_window.findChild<QDockWidget*>(QStringLiteral("open pages"));
    ASSERT_NE(pane, nullptr);
    pane->close();
    EXPECT_FALSE(m_desk.main.OpenPagesPanel().Form.Visible());
}

TEST_F(OpenPagesPanelTest, LongPassagesTakeSeveralLines) {
    m_desk.Read(1, u"http://a/", u"p" + Text(30, u'w') + u" " + Text(60, u'x') + u" " + Text(60, u'y') + u" apples");
    QTest::keyClicks(Words(), QStringLiteral("apples"));
    EXPECT_GT(List()->sizeHintForRow(1), 2 * List()->fontMetrics().height());
    EXPECT_LT(List()->sizeHintForRow(0), 3 * List()->fontMetrics().height());
    // And can be painted, marked and selected.
    List()->setCurrentRow(1);
    EXPECT_FALSE(List()->grab().isNull());
}

} // namespace

} // namespace tessa::qt
