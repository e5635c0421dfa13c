// Tests: PaneFocus, TileHeader, TileDropZone, TileRects
#include "qt/tiles/TileArea.h"

#include "qt/base/Strings.h"
#include "tests/fakes/BareTabs.h"
#include "tests/qt/base/TwoScreens.h"
#include "tiles/TileText.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace tessa::qt {

namespace {

/// Tabs whose pages are boxes to type into, in the panes of a window.
struct PlainFaces final : TileFaces {
    [[nodiscard]] QIcon IconOf(const Tab&) const override { return {}; }
    [[nodiscard]] QString TitleOf(const Tab& tab) const override { return ToQt(tab.Caption()); }
    [[nodiscard]] bool MayShow(std::size_t count) const override {
        asked += std::to_string(count) + ";";
        return may;
    }
    mutable std::string asked;
    bool may = true;
};

class TileAreaTest : public testing::Test, public BareTabs {
protected:
    TileAreaTest() {
        StartWithTabs(4);
        for (int index = 1; index <= 4; ++index) {
            pages[index] = new QLineEdit(&window);
            pcPage.SetCaption(pcPage.FindAt(static_cast<std::size_t>(index)), u"Title " + Decimal(index));
        }
        window.resize(405, 405);
        area.Changed.ConnectForLife([this] { Lay(); });
        area.CloseRequested.ConnectForLife([this](std::int32_t index) { Close(index); });
        area.MenuRequested.ConnectForLife([this](std::int32_t index) { menuOf = index; });
        area.Attach(tiles, pcPage, faces);
        window.show();
        window.activateWindow();
        Lay();
    }
    /// What the engine does with the pages.
    void Lay() {
        const auto* layout = tiles.Shown();
        for (const auto& [index, page] : pages) {
            page->setGeometry(area.PageRect(window.rect(), index));
            const bool shown = index == tiles.Focus() || (layout && !layout->Full && layout->Has(index));
            page->setVisible(shown);
        }
    }
    void Show(TextView layout) { tiles.Show(TileLayoutIn(layout).value()); }
    [[nodiscard]] std::string Layout() const {
        return tiles.Shown() ? ToUtf8(TileText(*tiles.Shown())) : std::string("alone");
    }
    /// The header of that title; fails the test when it is not shown.
    TileHeader& Header(const QString& title) {
        for (auto* each : area.findChildren<TileHeader*>()) {
            if (!each->isHidden() && each->text() == title) return *each;
        }
        ADD_FAILURE() << "no header " << title.toStdString();
        std::abort();
    }
    [[nodiscard]] std::size_t CountHeaders() const {
        std::size_t count = 0;
        for (const auto* each : area.findChildren<TileHeader*>()) count += each->isHidden() ? 0 : 1;
        return count;
    }
    [[nodiscard]] QWidget* DropZone() const { return window.findChild<QWidget*>(QStringLiteral("tileDropZone")); }
    /// Presses at a point of the window, moves to another one and lets go, with real events.
    static void DragBy(QWidget& widget, QPoint from, QPoint by) {
        QTest::mousePress(&widget, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 4; ++step) QTest::mouseMove(&widget, from + by * step / 4);
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, from + by);
    }

    QWidget window;
    Tiles tiles{tabs, pcPage};
    PlainFaces faces;
    TileArea area{&window};
    std::map<int, QLineEdit*> pages;
    std::int32_t menuOf = 0;
};

TEST_F(TileAreaTest, APageAloneHasAllTheRoom) {
    EXPECT_TRUE(area.isHidden());
    EXPECT_EQ(pages[1]->geometry(), window.rect());
    Show(u"h(1 2)");
    EXPECT_FALSE(area.isHidden());
    pcPage.Select(pcPage.FindAt(3));
    EXPECT_TRUE(area.isHidden());
    EXPECT_EQ(pages[3]->geometry(), window.rect());
    EXPECT_EQ(CountHeaders(), 2u) << "hidden with the area";
}

TEST_F(TileAreaTest, EachPageLiesUnderItsHeader) {
    Show(u"h(1 v(2 3))");
    const int header = TileHeader::HeightIn(area);
    EXPECT_EQ(pages[1]->geometry(), QRect(0, header, 200, 405 - header));
    EXPECT_EQ(pages[2]->geometry(), QRect(205, header, 200, 200 - header));
    EXPECT_EQ(pages[3]->geometry(), QRect(205, 205 + header, 200, 200 - header));
    EXPECT_EQ(Header(QStringLiteral("Title 2")).geometry(), QRect(205, 0, 200, header));
    EXPECT_EQ(Header(QStringLiteral("Title 2")).accessibleName(), QStringLiteral("Title 2"));
}

TEST_F(TileAreaTest, WithoutHeadersOnlyAFrameIsLeft) {
    Show(u"h(1 2)");
    tiles.ShowHeaders(false);
    EXPECT_EQ(pages[1]->geometry(), QRect(2, 2, 196, 401));
    EXPECT_EQ(CountHeaders(), 0u);
    tiles.ShowHeaders(true);
    EXPECT_EQ(CountHeaders(), 2u);
}

TEST_F(TileAreaTest, AClickIntoAPageSelectsItsTab) {
    Show(u"h(1 2)");
    QTest::mouseClick(pages[2], Qt::LeftButton);
    EXPECT_EQ(tiles.Focus(), 2);
    QTest::mouseClick(pages[1], Qt::RightButton);
    EXPECT_EQ(tiles.Focus(), 1);
    pcPage.Select(pcPage.FindAt(3));
    QTest::mouseClick(pages[3], Qt::LeftButton);
    EXPECT_EQ(tiles.Focus(), 3) << "alone, a page's clicks are nobody's business";
}

TEST_F(TileAreaTest, WhatIsClickedInAPaneKeepsTheKeyboard) {
    Show(u"h(1 2)");
    auto* inside = new QLineEdit(pages[2]);
    inside->setGeometry(10, 10, 60, 20);
    inside->show();
    pages[1]->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return pages[1]->hasFocus(); }));
    QTest::mouseClick(inside, Qt::LeftButton);
    EXPECT_EQ(tiles.Focus(), 2);
    EXPECT_EQ(QApplication::focusWidget(), inside);
}

TEST_F(TileAreaTest, GoingToAPageByKeysSelectsItsTab) {
    Show(u"h(1 2)");
    pages[1]->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return pages[1]->hasFocus(); }));
    QTest::keyPress(pages[1], Qt::Key_Tab);
    pages[2]->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(QTest::qWaitFor([this] { return tiles.Focus() == 2; }));
}

TEST_F(TileAreaTest, NoPageTakesTheKeyboardByItself) {
    Show(u"h(1 2)");
    pages[1]->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return pages[1]->hasFocus(); }));
    pages[2]->setFocus(Qt::OtherFocusReason);
    EXPECT_TRUE(QTest::qWaitFor([this] { return pages[1]->hasFocus(); }));
    EXPECT_EQ(tiles.Focus(), 1);
}

TEST_F(TileAreaTest, APageThatIsHiddenHandsItsKeyboardToNoOtherTab) {
    Show(u"h(1 2)");
    pages[1]->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return pages[1]->hasFocus(); }));
    pcPage.Select(pcPage.FindAt(3));
    pages[3]->setFocus();
    for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents();
    EXPECT_EQ(tiles.Focus(), 3);
}

TEST_F(TileAreaTest, APageThatGoesByItselfLeavesTheFocusToItsPane) {
    Show(u"h(1 2)");
    pages[1]->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return pages[1]->hasFocus(); }));
    int clicks = 0;
    pcPage.Click.ConnectForLife([&clicks] { ++clicks; });
    // As the engine does with a page whose process has died.
    pages[1]->hide();
    ASSERT_FALSE(pages[1]->hasFocus());
    EXPECT_TRUE(QTest::qWaitFor([&clicks] { return clicks == 1; })) << "its pane gets the keyboard again";
    EXPECT_EQ(tiles.Focus(), 1);
}

TEST_F(TileAreaTest, AHeaderSelectsGrowsAndCloses) {
    Show(u"h(1 2)");
    auto& second = Header(QStringLiteral("Title 2"));
    QTest::mouseClick(&second, Qt::LeftButton);
    EXPECT_EQ(tiles.Focus(), 2);
    QTest::mouseDClick(&second, Qt::LeftButton);
    EXPECT_EQ(Layout(), "h(1 2) full");
    EXPECT_EQ(CountHeaders(), 1u);
    QTest::mouseDClick(&Header(QStringLiteral("Title 2")), Qt::LeftButton);
    EXPECT_EQ(Layout(), "h(1 2)");
    QTest::mouseClick(&Header(QStringLiteral("Title 1")), Qt::RightButton);
    EXPECT_EQ(menuOf, 1);
    auto* close = Header(QStringLiteral("Title 2")).findChild<QAbstractButton*>(QStringLiteral("cmdCloseTile"));
    ASSERT_TRUE(close && close->isVisible());
    EXPECT_EQ(close->accessibleName(), QStringLiteral("Close Title 2"));
    QTest::mouseClick(close, Qt::LeftButton);
    EXPECT_EQ(Layout(), "alone");
    EXPECT_EQ(pcPage.Count(), 3u);
    EXPECT_EQ(tiles.Focus(), 1);
}

TEST_F(TileAreaTest, TheMiddleButtonOnAHeaderClosesItsTab) {
    Show(u"h(1 2 3)");
    QTest::mouseClick(&Header(QStringLiteral("Title 3")), Qt::MiddleButton);
    EXPECT_EQ(Layout(), "h(1 2)");
}

TEST_F(TileAreaTest, AHeaderShowsWhatItsTabIsCalledNow) {
    Show(u"h(1 2)");
    pcPage.SetCaption(pcPage.FindAt(2), u"<b>new</b>");
    EXPECT_TRUE(QTest::qWaitFor([this] {
        const auto headers = area.findChildren<TileHeader*>();
        return std::ranges::any_of(headers, [](const auto* each) { return each->text() == u"<b>new</b>"; });
    }));
    EXPECT_TRUE(Header(QStringLiteral("<b>new</b>")).toolTip().contains(QStringLiteral("&lt;b&gt;")))
        << "a title is text, whatever it looks like";
}

TEST_F(TileAreaTest, ADividerIsDraggedAndPutBackInTheMiddle) {
    Show(u"h(1 2)");
    DragBy(area, {202, 200}, {-80, 7});
    EXPECT_EQ(pages[1]->width(), 120);
    EXPECT_EQ(pages[2]->geometry().left(), 125);
    DragBy(area, {122, 200}, {-500, 0});
    EXPECT_EQ(pages[1]->width(), 60) << "no pane gets lost";
    QTest::mouseDClick(&area, Qt::LeftButton, {}, {62, 200});
    QTest::mouseRelease(&area, Qt::LeftButton, {}, {62, 200});
    EXPECT_EQ(pages[1]->width(), 200);
    EXPECT_EQ(Layout(), "h(1 2)");
}

TEST_F(TileAreaTest, KeysMoveTheDividersOfThePaneInFocus) {
    area.MoveDividers();
    EXPECT_FALSE(area.hasFocus()) << "alone there are none";
    Show(u"h(1 v(2 3))");
    pcPage.Select(pcPage.FindAt(3));
    area.MoveDividers();
    ASSERT_TRUE(QTest::qWaitFor([this] { return area.hasFocus(); }));
    QTest::keyClick(&area, Qt::Key_Left);
    EXPECT_EQ(Layout(), "h(1:90000 v(2 3):110000)");
    QTest::keyClick(&area, Qt::Key_Down);
    EXPECT_EQ(Layout(), "h(1:90000 v(2:110000 3:90000):110000)");
    QTest::keyClick(&area, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Layout(), "h(1:90000 v(2:109500 3:90500):110000)");
    QTest::keyClick(&area, Qt::Key_Right);
    EXPECT_EQ(Layout(), "h(1:100000 v(2:109500 3:90500):100000)");
    QTest::keyClick(&area, Qt::Key_Home);
    EXPECT_EQ(Layout(), "h(1 v(2 3))");
    for (int i = 0; i < 50; ++i) QTest::keyClick(&area, Qt::Key_Left);
    EXPECT_GE(pages[1]->width(), 50) << "no pane is lost by that";
    int clicks = 0;
    pcPage.Click.ConnectForLife([&] { ++clicks; });
    QTest::keyClick(&area, Qt::Key_Escape);
    EXPECT_EQ(clicks, 1) << "the page gets the keyboard again";
    EXPECT_EQ(tiles.Focus(), 3);
}

TEST_F(TileAreaTest, TheDividersThatKeysMoveAreSeen) {
    Show(u"h(1 2)");
    const QPoint divider(202, 200);
    const auto colour = [&] { return area.grab().toImage().pixelColor(divider * area.devicePixelRatio()); };
    const QColor plain = colour();
    area.MoveDividers();
    ASSERT_TRUE(QTest::qWaitFor([&] { return colour() != plain; }));
    pages[1]->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return colour() == plain; }));
}

TEST_F(TileAreaTest, TheOtherButtonsMoveNoDivider) {
    Show(u"v(1 2)");
    QTest::mousePress(&area, Qt::RightButton, {}, {100, 202});
    QTest::mouseMove(&area, {100, 300});
    QTest::mouseRelease(&area, Qt::RightButton, {}, {100, 300});
    EXPECT_EQ(Layout(), "v(1 2)");
    DragBy(area, {100, 202}, {0, 50});
    EXPECT_EQ(pages[1]->geometry().bottom() + 1, 250);
}

TEST_F(TileAreaTest, ADraggedTabShowsWhereItWouldCome) {
    const auto at = [this](int x, int y) { return window.mapToGlobal(QPoint(x, y)); };
    area.ShowDrop(2, at(10, 200));
    EXPECT_TRUE(DropZone()->isVisible());
    EXPECT_EQ(DropZone()->geometry(), QRect(0, 0, 202, 405));
    area.ShowDrop(2, at(200, 200));
    EXPECT_FALSE(DropZone()->isVisible()) << "in the middle there is no edge";
    area.ShowDrop(1, at(10, 200));
    EXPECT_FALSE(DropZone()->isVisible()) << "no page lies beside itself";
    area.ShowDrop(2, at(-10, 200));
    EXPECT_FALSE(DropZone()->isVisible());
    EXPECT_FALSE(area.Drop(2, at(200, 200)));
    EXPECT_TRUE(area.Drop(2, at(400, 200)));
    EXPECT_EQ(Layout(), "h(1 2)");
    area.ShowDrop(3, at(300, 390));
    EXPECT_EQ(DropZone()->geometry(), QRect(205, 203, 200, 202));
    EXPECT_TRUE(area.Drop(3, at(300, 390)));
    EXPECT_FALSE(DropZone()->isVisible());
    EXPECT_EQ(Layout(), "h(1 v(2 3))");
    EXPECT_EQ(tiles.Focus(), 3);
}

TEST_F(TileAreaTest, AHeaderIsDraggedToAnotherPane) {
    Show(u"h(1 2 3)");
    DragBy(Header(QStringLiteral("Title 1")), {20, 10}, {350, 385});
    EXPECT_EQ(Layout(), "h(2 v(3 1))");
    EXPECT_FALSE(DropZone()->isVisible());
}

TEST_F(TileAreaTest, SeveralTabsAreDroppedBesideEachOtherIfSoManyMayBeShown) {
    const QPoint edge = window.mapToGlobal(QPoint(400, 200));
    faces.may = false;
    EXPECT_FALSE(area.Drop(std::vector<std::int32_t>{3, 2, 4}, edge));
    EXPECT_EQ(Layout(), "alone");
    faces.may = true;
    EXPECT_TRUE(area.Drop(std::vector<std::int32_t>{3, 2, 4}, edge));
    EXPECT_EQ(tiles.Shown()->Numbers(), (std::vector<std::int32_t>{1, 3, 2, 4}));
    EXPECT_EQ(tiles.Focus(), 3);
    EXPECT_EQ(faces.asked, "4;4;");
    EXPECT_FALSE(area.Drop(std::vector<std::int32_t>{2, 1}, window.mapToGlobal(QPoint(-9, 200))));
    EXPECT_FALSE(area.Drop(std::vector<std::int32_t>(), edge));
    EXPECT_EQ(faces.asked, "4;4;") << "nobody is asked about what comes nowhere";
}

TEST_F(TileAreaTest, TwoHundredPanesAndNoRoomForThem) {
    std::vector<std::int32_t> all{1, 2, 3, 4};
    for (int index = 5; index <= 200; ++index) {
        tabs.GetNewBrowser(InFront::No);
        all.push_back(index);
        pages[index] = new QLineEdit(&window);
    }
    tiles.Show(TileLayouts::Grid(all).value());
    EXPECT_EQ(CountHeaders(), 0u) << "no pane is high enough for one";
    for (const auto& [index, page] : pages) EXPECT_FALSE(page->geometry().isEmpty()) << index;
    window.resize(1, 1);
    Lay();
    for (const auto& [index, page] : pages) EXPECT_FALSE(page->geometry().isEmpty()) << index;
    QTest::mouseDClick(&area, Qt::LeftButton, {}, {0, 0});
    QTest::mouseRelease(&area, Qt::LeftButton, {}, {0, 0});
    while (pcPage.Count() > 1) tabs.CloseUnasked(pcPage.FindAt(pcPage.Count())->Tag);
    EXPECT_TRUE(area.isHidden());
}

TEST_F(TileAreaTest, PaintsWithAndWithoutHeadersInAnyColours) {
    Show(u"h(1 v(2 3))");
    for (const QColor& window : {QColor(Qt::white), QColor(30, 30, 34)}) {
        area.setPalette(QPalette(window));
        const QColor marked = area.palette().color(QPalette::Highlight);
        EXPECT_FALSE(area.grab().isNull());
        const QImage focused = Header(QStringLiteral("Title 1")).grab().toImage();
        const QImage other = Header(QStringLiteral("Title 2")).grab().toImage();
        EXPECT_EQ(focused.pixelColor(50, 0), marked) << "the focus is seen";
        EXPECT_NE(other.pixelColor(50, 0), marked);
    }
    tiles.ShowHeaders(false);
    const QImage frame = area.grab().toImage();
    EXPECT_EQ(frame.pixelColor(0, 200), area.palette().color(QPalette::Highlight));
    EXPECT_NE(frame.pixelColor(404, 50), area.palette().color(QPalette::Highlight));
}

/// Played by a process of its own that has two screens, see below.
class RoleTwoScreens : public TileAreaTest {
protected:
    void MoveTo(QPoint corner) {
        scales.insert(TwoScreens::Move(window, {corner, QSize(405, 405)}));
        Lay();
    }
    /// All that lies in the window, and where each corner and edge of it would have a tab dropped. Nothing stands for a
    /// point that Qt tells the screen's place of, and cannot tell it back: from 6.8 on some across two screens.
    [[nodiscard]] std::vector<std::optional<QRect>> Places() {
        std::vector<std::optional<QRect>> all;
        for (const auto& [index, page] : pages) all.emplace_back(page->geometry());
        for (const auto* each : area.findChildren<TileHeader*>()) all.emplace_back(each->geometry());
        // Two pixels at least from where the answer changes: a screen's scale rounds by one.
        for (const int x : {12, 70, 190, 217, 260, 393}) {
            for (const int y : {50, 90, 175, 229, 330, 360}) {
                const QPoint global = window.mapToGlobal(QPoint(x, y));
                area.ShowDrop(4, global);
                const QRect zone = DropZone()->isVisible() ? DropZone()->geometry() : QRect();
                all.emplace_back(window.mapFromGlobal(global) == QPoint(x, y) ? std::optional(zone) : std::nullopt);
            }
        }
        area.HideDrop();
        return all;
    }
    static void ExpectAlike(const std::vector<std::optional<QRect>>& one,
                            const std::vector<std::optional<QRect>>& two) {
        ASSERT_EQ(one.size(), two.size());
        for (std::size_t i = 0; i < one.size(); ++i) {
            if (!one[i] || !two[i]) continue;
            EXPECT_EQ(*one[i], *two[i]) << i;
        }
    }

    std::set<qreal> scales; ///< that the window has had
};

TEST_F(RoleTwoScreens, DISABLED_AllLiesAndIsDroppedAlikeOnBothAndAcross) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    ASSERT_EQ(screens.size(), 2);
    ASSERT_NE(screens[0]->devicePixelRatio(), screens[1]->devicePixelRatio());
    Show(u"h(1 v(2 3))");
    MoveTo(screens[0]->geometry().topLeft() + QPoint(40, 40));
    const auto first = Places();
    EXPECT_EQ(std::count(first.begin(), first.end(), std::nullopt), 0);
    const QRect second = screens[1]->geometry();
    // On the other screen, and with its left or its right half beside it.
    for (const int x : {second.left() + 40, second.left() - 240, second.left() - 160, second.right() - 200}) {
        MoveTo({x, second.top() + 40});
        SCOPED_TRACE(x);
        const auto places = Places();
        ExpectAlike(places, first);
        if (screens[1]->geometry().contains(window.geometry())) {
            EXPECT_EQ(std::count(places.begin(), places.end(), std::nullopt), 0);
        }
    }
    EXPECT_EQ(scales.size(), 2U) << "it was on both";
    for (const QScreen* each : screens) {
        MoveTo(each->geometry().topLeft() + QPoint(40, 40));
        Show(u"h(1 2 3)");
        DragBy(Header(QStringLiteral("Title 1")), {20, 10}, {350, 385});
        EXPECT_EQ(Layout(), "h(2 v(3 1))");
        DragBy(area, {202, 100}, {20, 0});
        EXPECT_EQ(pages[2]->geometry().width(), 220);
    }
}

TEST(TileAreaOnTwoScreens, EachScaledInItsWay) {
    for (const auto& [left, right] : {std::pair{"1", "2"}, {"2", "1"}, {"1.25", "1.5"}})
        TwoScreens{{1600, 1200}, left, right}.Play("RoleTwoScreens");
}

} // namespace

} // namespace tessa::qt
