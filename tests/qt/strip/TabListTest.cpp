// Tests: TabLines, Tip
#include "qt/strip/TabList.h"

#include "qt/strip/TabLines.h"

#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class TabListTest : public testing::Test {
protected:
    void SetUp() override {
        list.CloseRequested.ConnectForLife([this](const Text& key) { closed += ToUtf8(key) + ";"; });
        list.Chosen.ConnectForLife([this](const Text& key) { chosen += ToUtf8(key) + ";"; });
    }
    static std::vector<TabListEntry> Tabs(int count, int selected) {
        std::vector<TabListEntry> tabs;
        for (int i = 1; i <= count; ++i)
            tabs.push_back({u"Tab" + Decimal(i),
                            QStringLiteral("Page %1").arg(i),
                            QStringLiteral("http://host%1.example/<b>").arg(i * 1000),
                            QStringLiteral("Page %1\n<b>Private tab").arg(i),
                            {},
                            i == selected});
        return tabs;
    }
    void Open(int count, int selected) {
        list.Open(Tabs(count, selected), {500, 100});
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    }
    [[nodiscard]] QLineEdit* Search() const { return list.findChild<QLineEdit*>(); }
    [[nodiscard]] QListView* View() const { return list.findChild<QListView*>(); }
    [[nodiscard]] QString Marked() const { return View()->currentIndex().data().toString(); }
    void Key(Qt::Key key) { QTest::keyClick(Search(), key); }

    QWidget window;
    TabList list{&window};
    std::string chosen, closed;
};

TEST_F(TabListTest, OpensWithTheSelectedTabMarkedAndEnterChoosesIt) {
    Open(300, 250);
    EXPECT_EQ(View()->model()->rowCount(), 300);
    EXPECT_EQ(Marked(), QStringLiteral("Page 250"));
    EXPECT_TRUE(View()->viewport()->rect().intersects(View()->visualRect(View()->currentIndex())));
    Key(Qt::Key_Return);
    EXPECT_EQ(chosen, "Tab250;");
    EXPECT_FALSE(list.isVisible());
}

TEST_F(TabListTest, TypingNarrowsByTitleAndByAddress) {
    Open(30, 1);
    QTest::keyClicks(Search(), QStringLiteral("pAGE 2"));
    EXPECT_EQ(View()->model()->rowCount(), 11);
    EXPECT_EQ(Marked(), QStringLiteral("Page 2"));
    Search()->setText(QStringLiteral("host7000"));
    EXPECT_EQ(View()->model()->rowCount(), 1);
    Key(Qt::Key_Enter);
    EXPECT_EQ(chosen, "Tab7;");
}

TEST_F(TabListTest, WhereNothingIsFoundNothingIsChosen) {
    Open(3, 1);
    QTest::keyClicks(Search(), QStringLiteral("(*"));
    EXPECT_EQ(View()->model()->rowCount(), 0);
    Key(Qt::Key_Return);
    EXPECT_EQ(chosen, "");
    EXPECT_TRUE(list.isVisible());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(list.isVisible());
}

TEST_F(TabListTest, ArrowKeysStayInsideTheList) {
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

TEST_F(TabListTest, AClickChooses) {
    Open(5, 1);
    const QRect place = View()->visualRect(View()->model()->index(3, 0));
    QTest::mouseClick(View()->viewport(), Qt::LeftButton, {}, place.center());
    EXPECT_EQ(chosen, "Tab4;");
}

TEST_F(TabListTest, EachLineHasAnIconAndTheHostOfItsPage) {
    Open(2, 1);
    const QModelIndex line = View()->model()->index(1, 0);
    EXPECT_EQ(line.data(TabLines::kHostRole).toString(), QStringLiteral("host2000.example"));
    EXPECT_TRUE(line.data(Qt::ToolTipRole).toString().contains(QStringLiteral("Page 2<br/>&lt;b&gt;Private tab")));
    EXPECT_TRUE(line.data(Qt::DecorationRole).canConvert<QIcon>());
}

TEST_F(TabListTest, AHostIsShownInTheFormThatIsMistakenForNoOther) {
    auto tabs = Tabs(1, 1);
    tabs.front().address = QStringLiteral("http://user@\u0430pple.example:81/");
    list.Open(tabs, {500, 100});
    const QString host = View()->model()->index(0, 0).data(TabLines::kHostRole).toString();
    EXPECT_EQ(host, QStringLiteral("xn--pple-43d.example:81"));
}

TEST_F(TabListTest, TheButtonOfALineClosesItsTabAndChoosesNone) {
    Open(5, 1);
    const QRect line = View()->visualRect(View()->model()->index(3, 0));
    const QPoint button = TabLines::ClosePlace(line).center();
    EXPECT_TRUE(line.contains(button));
    QTest::mouseClick(View()->viewport(), Qt::LeftButton, {}, button);
    ASSERT_TRUE(QTest::qWaitFor([&] { return closed == "Tab4;"; }));
    EXPECT_EQ(chosen, "");
    EXPECT_TRUE(list.isVisible());
    QTest::mousePress(View()->viewport(), Qt::LeftButton, {}, button);
    QTest::mouseRelease(View()->viewport(), Qt::LeftButton, {}, line.center());
    QCoreApplication::processEvents();
    EXPECT_EQ(closed + chosen, "Tab4;") << "the button was left again";
    QTest::mouseClick(View()->viewport(), Qt::LeftButton, {}, line.center());
    EXPECT_EQ(chosen, "Tab4;");
}

TEST_F(TabListTest, CtrlWClosesTheMarkedTab) {
    Open(5, 2);
    QTest::keyClick(Search(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(closed, "Tab2;");
    EXPECT_TRUE(list.isVisible());
}

TEST_F(TabListTest, TheListIsAwayWhenTheLastTabIsToClose) {
    Open(1, 1);
    bool open = true;
    list.CloseRequested.ConnectForLife([&](const Text&) { open = list.isVisible(); });
    QTest::keyClick(Search(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(open);
}

TEST_F(TabListTest, ATabThatHasGoneLeavesTheListAndItsNeighbourIsMarked) {
    Open(5, 3);
    QTest::keyClicks(Search(), QStringLiteral("page"));
    Key(Qt::Key_Down);
    ASSERT_EQ(Marked(), QStringLiteral("Page 2"));
    auto tabs = Tabs(5, 3);
    tabs.erase(tabs.begin());
    list.Refresh(tabs);
    EXPECT_EQ(View()->model()->rowCount(), 4);
    EXPECT_EQ(Marked(), QStringLiteral("Page 2")) << "it is still there";
    tabs.erase(tabs.begin());
    list.Refresh(tabs);
    EXPECT_EQ(Marked(), QStringLiteral("Page 3"));
    EXPECT_EQ(Search()->text(), QStringLiteral("page"));
    tabs.resize(1);
    list.Refresh(tabs);
    EXPECT_EQ(Marked(), QStringLiteral("Page 3"));
}

TEST_F(TabListTest, TheSearchOfTheLastTimeIsForgotten) {
    Open(5, 1);
    QTest::keyClicks(Search(), QStringLiteral("4"));
    list.close();
    Open(5, 2);
    EXPECT_EQ(View()->model()->rowCount(), 5);
    EXPECT_EQ(Marked(), QStringLiteral("Page 2"));
}

TEST_F(TabListTest, PicturesStandOutOnTheMarkedLineAndOnOthers) {
    const QPalette palette = QGuiApplication::palette();
    QPixmap hidden(32, 32);
    hidden.fill(palette.color(QPalette::Highlight));
    auto tabs = Tabs(4, 1);
    tabs[0].icon = tabs[1].icon = QIcon(hidden);
    list.Open(tabs, {500, 100});
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    const auto picture = [this](int row) {
        const QRect line = View()->visualRect(View()->model()->index(row, 0));
        return View()->viewport()->grab({line.left() + 4, line.center().y() - 8, 16, 16}).toImage();
    };
    EXPECT_EQ(picture(0).pixelColor(8, 8), palette.color(QPalette::HighlightedText));
    EXPECT_EQ(picture(1).pixelColor(8, 8), palette.color(QPalette::Highlight)) << "elsewhere it is as it is";
    // Of pages without one, the sheet's left edge.
    const auto edge = [&](int row) {
        return std::abs(qGray(picture(row).pixel(3, 8)) - qGray(picture(row).pixel(8, 8)));
    };
    EXPECT_GT(edge(2), 60);
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_GT(edge(2), 60) << "marked";
    EXPECT_EQ(picture(0).pixelColor(8, 8), palette.color(QPalette::Highlight));
}

} // namespace

} // namespace tessa::qt
