#include "qt/QtTabList.h"

#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class QtTabListTest : public testing::Test {
protected:
    void SetUp() override {
        list.Chosen = [this](const Text& key) { chosen += ToUtf8(key) + ";"; };
    }
    void Open(int count, int selected) {
        std::vector<QtTabListEntry> tabs;
        for (int i = 1; i <= count; ++i)
            tabs.push_back({u"Tab" + Decimal(i),
                            QStringLiteral("Page %1").arg(i),
                            QStringLiteral("http://host%1.example/<b>").arg(i * 1000),
                            {},
                            i == selected});
        list.Open(tabs, {500, 100});
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    }
    [[nodiscard]] QLineEdit* Search() const { return list.findChild<QLineEdit*>(); }
    [[nodiscard]] QListView* View() const { return list.findChild<QListView*>(); }
    [[nodiscard]] QString Marked() const { return View()->currentIndex().data().toString(); }
    void Key(Qt::Key key) { QTest::keyClick(Search(), key); }

    QWidget window;
    QtTabList list{&window};
    std::string chosen;
};

TEST_F(QtTabListTest, OpensWithTheSelectedTabMarkedAndEnterChoosesIt) {
    Open(300, 250);
    EXPECT_EQ(View()->model()->rowCount(), 300);
    EXPECT_EQ(Marked(), QStringLiteral("Page 250"));
    EXPECT_TRUE(View()->viewport()->rect().intersects(View()->visualRect(View()->currentIndex())));
    Key(Qt::Key_Return);
    EXPECT_EQ(chosen, "Tab250;");
    EXPECT_FALSE(list.isVisible());
}

TEST_F(QtTabListTest, TypingNarrowsByTitleAndByAddress) {
    Open(30, 1);
    QTest::keyClicks(Search(), QStringLiteral("pAGE 2"));
    EXPECT_EQ(View()->model()->rowCount(), 11);
    EXPECT_EQ(Marked(), QStringLiteral("Page 2"));
    Search()->setText(QStringLiteral("host7000"));
    EXPECT_EQ(View()->model()->rowCount(), 1);
    Key(Qt::Key_Enter);
    EXPECT_EQ(chosen, "Tab7;");
}

TEST_F(QtTabListTest, WhereNothingIsFoundNothingIsChosen) {
    Open(3, 1);
    QTest::keyClicks(Search(), QStringLiteral("(*"));
    EXPECT_EQ(View()->model()->rowCount(), 0);
    Key(Qt::Key_Return);
    EXPECT_EQ(chosen, "");
    EXPECT_TRUE(list.isVisible());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(list.isVisible());
}

TEST_F(QtTabListTest, ArrowKeysStayInsideTheList) {
    Open(3, 3);
    Key(Qt::Key_Down);
    EXPECT_EQ(Marked(), QStringLiteral("Page 3"));
    Key(Qt::Key_Up);
    EXPECT_EQ(Marked(), QStringLiteral("Page 2"));
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Marked(), QStringLiteral("Page 1"));
    Key(Qt::Key_Up);
    EXPECT_EQ(Marked(), QStringLiteral("Page 1"));
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Marked(), QStringLiteral("Page 3"));
}

TEST_F(QtTabListTest, AClickChooses) {
    Open(5, 1);
    const QRect place = View()->visualRect(View()->model()->index(3, 0));
    QTest::mouseClick(View()->viewport(), Qt::LeftButton, {}, place.center());
    EXPECT_EQ(chosen, "Tab4;");
}

TEST_F(QtTabListTest, TheSearchOfTheLastTimeIsForgotten) {
    Open(5, 1);
    QTest::keyClicks(Search(), QStringLiteral("4"));
    list.close();
    Open(5, 2);
    EXPECT_EQ(View()->model()->rowCount(), 5);
    EXPECT_EQ(Marked(), QStringLiteral("Page 2"));
}

} // namespace
