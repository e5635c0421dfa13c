// Tests: StripParts, TabHeadLook, TabRow, TabStripAccessible, TabStripViewDrag
#include "qt/base/Palette.h"
#include "qt/base/Strings.h"
#include "qt/base/paint/Contrast.h"
#include "qt/strip/TabHeadLook.h"
#include "qt/strip/TabStripAccessible.h"
#include "qt/strip/TabStripView.h"

#include <QAccessible>
#include <QApplication>
#include <QPaintEvent>
#include <QTest>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace tessa::qt {

namespace {

/// A strip of 900 logical pixels with six tabs; 2, 3 and 5 are the group "News", 6 is pinned.
class TabHeadsTest : public testing::Test {
protected:
    struct Faces final : TabFaces {
        [[nodiscard]] QIcon IconOf(const Tab& tab) const override { return Plain().IconOf(tab); }
        [[nodiscard]] Text TipOf(const Tab& tab) const override { return Plain().TipOf(tab); }
        [[nodiscard]] Text NewTabKeys() const override { return {}; }
        [[nodiscard]] bool IsChanged(const TabGroup& group) const override { return changed.contains(group.Id()); }
        [[nodiscard]] TabPane PaneOf(const Tab& tab) const override {
            return panes.contains(tab.Tag) ? TabPane::Shown : TabPane::None;
        }
        std::set<std::int32_t> changed, panes;
    };

    void SetUp() override {
        InstallTabStripAccessibility();
        widget.resize(900, widget.RowHeight().value);
        for (int i = 1; i <= 6; ++i) Add();
        group = strip.NewGroup(At(2), u"News", TabColour::Green);
        strip.SetGroup(At(3), group);
        strip.SetGroup(At(5), group);
        strip.SetPinned(At(6), true);
        widget.Regrouped.ConnectForLife([this](const TabStripView::Views& views, std::int32_t into) {
            std::string all;
            for (const std::int32_t each : views) all = std::to_string(each) + (all.empty() ? "" : "," + all);
            const auto* joined = strip.FindGroup(into);
            regrouped += all + " -> " + (joined ? ToUtf8(joined->Name()) : std::string("-")) + ";";
        });
        widget.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    }
    void Drag(QPoint from, const std::vector<QPoint>& way) {
        QTest::mousePress(&widget, Qt::LeftButton, {}, from);
        for (const QPoint& each : way) QTest::mouseMove(&widget, each);
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, way.back());
    }
    /// The line that says of which group a tab is.
    QColor LineOf(int tag) { return ColourAt({Place(tag).center().x(), Place(tag).bottom()}); }
    Tab* Add() {
        Tab* tab = strip.Add(0, u"Tab" + Decimal(++m_last));
        tab->Tag = m_last;
        strip.SetCaption(tab, u"page " + Decimal(m_last));
        return tab;
    }
    Tab* At(std::size_t position) { return strip.FindAt(position); }
    /// By its number.
    QRect Place(int tag) { return widget.TabPlace(strip.PositionOf(strip.Find(u"Tab" + Decimal(tag)))); }
    QRect Head() { return widget.HeadPlace(group); }
    QColor ColourAt(QPoint point) { return widget.grab().toImage().pixelColor(point * widget.devicePixelRatio()); }
    /// The tabs that are seen, from the left.
    std::string Seen() {
        std::string all;
        for (int x = 0; x < widget.width(); ++x) {
            const Tab* tab = widget.FindTabAt({x, 5});
            const std::string tag = tab ? std::to_string(tab->Tag) + " " : "";
            if (!all.ends_with(tag)) all += tag;
        }
        return all;
    }
    QAccessibleInterface* Accessible(int child) { return QAccessible::queryAccessibleInterface(&widget)->child(child); }

    TabStrip strip;
    Faces faces;
    TabStripView widget{strip, faces};
    TabGroup* group = nullptr;
    std::string regrouped;

private:
    std::int32_t m_last = 0;
};

TEST_F(TabHeadsTest, TheHeadStandsBeforeTheFirstTabOfItsGroup) {
    EXPECT_EQ(Seen(), "6 1 2 3 4 5 ");
    EXPECT_EQ(Head().left(), Place(1).right() + 1);
    EXPECT_EQ(Head().right() + 1, Place(2).left());
    EXPECT_EQ(Place(3).left(), Place(2).right() + 1);
    const int slim = Place(5).left() - Place(4).right() - 1;
    EXPECT_GT(slim, 0) << "the other part has a mark of its own";
    EXPECT_LT(slim, Head().width() / 2);
    EXPECT_EQ(ColourAt({Head().left() + 6, Head().center().y() - 6}), Palette::MarkColour(TabColour::Green));
}

TEST_F(TabHeadsTest, NoDividerStandsBeforeAHead) {
    const auto divider = [this](int tag) {
        return ColourAt({Place(tag).right(), Place(tag).center().y()}) !=
               ColourAt({Place(tag).right() - 3, Place(tag).center().y()});
    };
    strip.Select(strip.Find(u"Tab6"));
    widget.RefreshFacesSoon();
    EXPECT_FALSE(divider(1)) << "a head stands behind it";
    EXPECT_TRUE(divider(2)) << "a tab does";
    strip.SetFolded(group, true);
    EXPECT_FALSE(divider(1));
}

TEST_F(TabHeadsTest, AClickFoldsAndUnfolds) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, Head().center());
    EXPECT_TRUE(group->Folded());
    EXPECT_EQ(Seen(), "6 1 4 ");
    EXPECT_TRUE(Place(2).isEmpty());
    EXPECT_EQ(Place(4).left(), Head().right() + 1) << "and no mark stays of the other part";
    EXPECT_EQ(strip.SelectedItem(), strip.Find(u"Tab1")) << "it selects nothing";
    QTest::mouseClick(&widget, Qt::LeftButton, {}, Head().center());
    EXPECT_FALSE(group->Folded());
    EXPECT_EQ(Seen(), "6 1 2 3 4 5 ");
}

TEST_F(TabHeadsTest, AHeadLeftBeforeTheReleaseOrAGroupThatGoesFoldsNothing) {
    QTest::mousePress(&widget, Qt::LeftButton, {}, Head().center());
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Place(1).center());
    EXPECT_FALSE(group->Folded());
    QTest::mousePress(&widget, Qt::LeftButton, {}, Head().center());
    const QPoint point = Head().center();
    for (const int tag : {2, 3, 5}) strip.SetGroup(strip.Find(u"Tab" + Decimal(tag)), nullptr);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, point);
    EXPECT_EQ(Seen(), "6 1 2 3 4 5 ");
}

TEST_F(TabHeadsTest, ATabOfAFoldedGroupThatIsSelectedIsSeen) {
    strip.SetFolded(group, true);
    strip.Select(strip.Find(u"Tab5"));
    EXPECT_EQ(Seen(), "6 1 4 5 ");
    strip.Select(strip.Find(u"Tab2"));
    EXPECT_EQ(Seen(), "6 1 2 4 ");
    strip.Select(strip.Find(u"Tab1"));
    EXPECT_EQ(Seen(), "6 1 4 ");
}

TEST_F(TabHeadsTest, ArrowKeysGoFromTabToTabWhateverIsSeen) {
    strip.SetFolded(group, true);
    widget.setFocus();
    QTest::keyClick(&widget, Qt::Key_Right);
    EXPECT_EQ(strip.SelectedItem(), strip.Find(u"Tab2"));
    EXPECT_EQ(Seen(), "6 1 2 4 ");
}

TEST_F(TabHeadsTest, TheRightButtonAsksForTheGroupsMenuNotForATabs) {
    std::string asked;
    widget.GroupMenuRequested.ConnectForLife([&](const TabGroup& each) { asked += ToUtf8(each.Name()) + ";"; });
    widget.RightButtonDown.ConnectForLife([&](QPoint) { asked += "tab;"; });
    QTest::mouseClick(&widget, Qt::RightButton, {}, Head().center());
    QTest::mouseClick(&widget, Qt::RightButton, {}, {Place(5).left() - 3, 8});
    QTest::mouseClick(&widget, Qt::RightButton, {}, Place(5).center());
    EXPECT_EQ(asked, "News;News;tab;");
    std::string closed;
    widget.CloseRequested.ConnectForLife([&](Tab&) { closed += "x"; });
    QTest::mouseClick(&widget, Qt::MiddleButton, {}, Head().center());
    EXPECT_EQ(closed, "") << "a head closes nothing";
}

TEST_F(TabHeadsTest, WhatTheHeadSaysMakesItAsLong) {
    const int plain = Head().width();
    strip.SetQueued(At(3), true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Head().width() > plain; }));
    strip.SetQueued(At(3), false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Head().width() == plain; }));
    faces.changed.insert(group->Id());
    strip.TouchGroups();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Head().width() > plain; }));
    faces.changed.clear();
    strip.SetGroupName(group, Text(500, u'x'));
    EXPECT_LT(Head().width(), widget.width() / 3) << "a long name is cut";
    strip.SetGroupName(group, u"");
    EXPECT_GT(Head().width(), 20) << "a name that is empty can be clicked too";
    strip.SetGroupName(group, u"\u202e\u05d0\u05d1\n\u200f");
    EXPECT_FALSE(widget.grab().isNull());
}

TEST_F(TabHeadsTest, AColourIsRepaintedByItself) {
    strip.SetGroupColour(group, TabColour::Red);
    const QPoint head(Head().left() + 6, Head().center().y() - 6);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ColourAt(head) == Palette::MarkColour(TabColour::Red); }));
}

TEST_F(TabHeadsTest, PinnedTabsAreIconsWithoutACloseButton) {
    EXPECT_LT(Place(6).width(), 40);
    EXPECT_EQ(Place(6).left(), 0);
    EXPECT_TRUE(widget.ClosePlace(1).isEmpty());
    EXPECT_TRUE(widget.SoundPlace(1).isEmpty());
    QTest::mouseClick(&widget, Qt::LeftButton, {}, Place(6).center());
    EXPECT_EQ(strip.SelectedItem(), strip.Find(u"Tab6"));
    strip.SetPinned(At(1), false);
    EXPECT_EQ(Seen(), "6 1 2 3 4 5 ");
    EXPECT_EQ(Place(6).width(), Place(1).width());
}

TEST_F(TabHeadsTest, APinnedTabIsDraggedAmongItsLikeAlone) {
    strip.SetPinned(strip.Find(u"Tab1"), true);
    EXPECT_EQ(Seen(), "6 1 2 3 4 5 ");
    QTest::mousePress(&widget, Qt::LeftButton, {}, Place(6).center());
    QTest::mouseMove(&widget, Place(4).center());
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Place(4).center());
    EXPECT_EQ(Seen(), "1 6 2 3 4 5 ");
    QTest::mousePress(&widget, Qt::LeftButton, {}, Place(5).center());
    QTest::mouseMove(&widget, Place(1).center());
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Place(1).center());
    EXPECT_EQ(Seen(), "1 6 5 2 3 4 ");
}

TEST_F(TabHeadsTest, ATabIsDraggedThroughAGroup) {
    QTest::mousePress(&widget, Qt::LeftButton, {}, Place(1).center());
    QTest::mouseMove(&widget, Place(2).center());
    EXPECT_EQ(Seen(), "6 2 1 3 4 5 ");
    QTest::mouseMove(&widget, Place(3).center());
    EXPECT_EQ(Seen(), "6 2 3 1 4 5 ");
    QTest::mouseMove(&widget, Place(1).center() - QPoint(10, 0));
    EXPECT_EQ(LineOf(1), Palette::MarkColour(TabColour::Green)) << "it is seen where it would belong";
    EXPECT_EQ(regrouped, "");
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Place(1).center() - QPoint(10, 0));
    EXPECT_EQ(regrouped, "1 -> News;");
    EXPECT_NE(LineOf(1), Palette::MarkColour(TabColour::Green)) << "the owner has not put it there";
}

TEST_F(TabHeadsTest, BehindTheLastTabOfAGroupTheHalfDecides) {
    strip.SetGroup(strip.Find(u"Tab5"), nullptr);
    Drag(Place(4).center(), {Place(3).center(), Place(3).center()});
    EXPECT_EQ(Seen(), "6 1 2 4 3 5 ");
    EXPECT_EQ(regrouped, "4 -> News;");
    regrouped.clear();
    Drag(Place(1).center(), {Place(3).center(), Place(3).center() + QPoint(9, 0)});
    EXPECT_EQ(Seen(), "6 2 4 3 1 5 ");
    EXPECT_EQ(regrouped, "1 -> -;");
    regrouped.clear();
    Drag(Place(1).center(), {Place(3).center(), Place(1).center() - QPoint(9, 0)});
    EXPECT_EQ(regrouped, "1 -> News;");
    regrouped.clear();
    const QPoint slip(QApplication::startDragDistance() + 2, 0);
    Drag(Place(3).center(), {Place(3).center() + slip});
    EXPECT_EQ(regrouped, "") << "a hand that slips moves nothing";
}

TEST_F(TabHeadsTest, ATabIsDroppedOnAHead) {
    QTest::mousePress(&widget, Qt::LeftButton, {}, Place(4).center());
    QTest::mouseMove(&widget, Head().center());
    EXPECT_EQ(Seen(), "6 1 4 2 3 5 ");
    const QImage aimed = widget.grab(Head()).toImage();
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Head().center());
    EXPECT_EQ(Seen(), "6 1 4 2 3 5 ");
    EXPECT_EQ(regrouped, "4 -> News;");
    EXPECT_NE(widget.grab(Head()).toImage(), aimed) << "it has shown that";
    regrouped.clear();
    strip.SetFolded(group, true);
    Drag(Place(1).center(), {Head().center()});
    EXPECT_EQ(regrouped, "1 -> News;") << "on a folded one too";
    regrouped.clear();
    Drag(Place(6).center(), {Head().center()});
    EXPECT_EQ(regrouped, "") << "a pinned tab is of no group";
    EXPECT_TRUE(group->Folded());
}

TEST_F(TabHeadsTest, AHeadStaysUnderWhoeverComesFromItsTabs) {
    const QRect head = Head();
    QTest::mousePress(&widget, Qt::LeftButton, {}, Place(4).center());
    for (int x = Place(4).left(); x > head.right(); x -= 3) QTest::mouseMove(&widget, {x, 8});
    EXPECT_EQ(Seen(), "6 1 4 2 3 5 ");
    EXPECT_TRUE(Head().contains(head.center())) << "it stands before the tab that would be its first";
    QTest::mouseMove(&widget, head.center());
    EXPECT_TRUE(Head().contains(head.center()));
    QTest::mouseMove(&widget, {head.left() + 2, 8});
    EXPECT_GT(Head().left(), head.right()) << "the tab has gone out at the other end";
    QTest::mouseMove(&widget, {head.left() + 3, 8});
    EXPECT_GT(Head().left(), head.right()) << "and does not jump to and fro";
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, {head.left() + 3, 8});
    EXPECT_EQ(regrouped, "4 -> -;");
    EXPECT_EQ(Seen(), "6 1 4 2 3 5 ");
    regrouped.clear();
    Drag(Place(2).center(), {{Head().left() + 2, 8}});
    EXPECT_EQ(regrouped, "2 -> -;") << "so the first tab of a group leaves it";
    regrouped.clear();
    Drag(Place(2).center(), {Head().center()});
    EXPECT_EQ(regrouped, "") << "and stays on its head";
}

TEST_F(TabHeadsTest, AHeadIsDraggedWithItsTabs) {
    const auto across = [&](int tag) { return QPoint(Place(tag).right() - 2, 8); };
    QTest::mousePress(&widget, Qt::LeftButton, {}, Head().center());
    QTest::mouseMove(&widget, {Place(4).left() + 3, 8});
    EXPECT_EQ(Seen(), "6 1 2 3 4 5 ") << "not past its middle yet";
    QTest::mouseMove(&widget, across(4));
    EXPECT_EQ(Seen(), "6 1 4 2 3 5 ") << "its parts come together";
    QTest::mouseMove(&widget, {Place(1).left() + 3, 8});
    EXPECT_EQ(Seen(), "6 2 3 5 1 4 ");
    QTest::mouseMove(&widget, Place(6).center());
    EXPECT_EQ(Seen(), "6 2 3 5 1 4 ") << "pinned tabs stay before all others";
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Place(6).center());
    EXPECT_FALSE(group->Folded());
    EXPECT_EQ(regrouped, "");
    EXPECT_EQ(strip.SelectedItem(), strip.Find(u"Tab1")) << "nothing is selected";
}

TEST_F(TabHeadsTest, AFoldedHeadThatIsNarrowerThanATabDoesNotJump) {
    strip.SetFolded(group, true);
    ASSERT_LT(Head().width(), Place(4).width());
    const int middle = Place(4).center().x();
    QTest::mousePress(&widget, Qt::LeftButton, {}, Head().center());
    for (int x = Place(4).left(); x <= middle + 6; ++x) QTest::mouseMove(&widget, {x, 8});
    EXPECT_EQ(Seen(), "6 1 4 ");
    EXPECT_GT(Head().left(), Place(4).left());
    const QRect head = Head();
    for (int step = 0; step < 4; ++step) QTest::mouseMove(&widget, {middle + 6 + step % 2, 8});
    EXPECT_EQ(Head(), head);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, {middle + 6, 8});
    EXPECT_TRUE(group->Folded());
}

TEST_F(TabHeadsTest, AGroupGoesPastAnotherAsOne) {
    auto* other = strip.NewGroup(At(5), u"Mail", TabColour::Blue);
    strip.SetGroup(strip.Find(u"Tab1"), other);
    strip.Move(strip.Find(u"Tab1"), 5);
    EXPECT_EQ(Seen(), "6 2 3 4 1 5 ");
    Drag(Head().center(), {Place(4).center()});
    EXPECT_EQ(Seen(), "6 2 3 4 1 5 ") << "not past its middle yet";
    Drag(Head().center(), {{Place(1).right() - 2, 8}});
    EXPECT_EQ(Seen(), "6 4 1 2 3 5 ");
    Drag(Head().center(), {widget.HeadPlace(other).topLeft() + QPoint(2, 8)});
    EXPECT_EQ(Seen(), "6 2 3 5 4 1 ");
    EXPECT_EQ(regrouped, "");
}

TEST_F(TabHeadsTest, AllThatAreChosenAreDraggedAndStayChosen) {
    int plain = 0;
    widget.PlainClick.ConnectForLife([&] { ++plain; });
    for (const int tag : {1, 4, 6}) strip.SetChosen(strip.Find(u"Tab" + Decimal(tag)), true);
    Drag(Place(4).center(), {{Place(5).right() - 2, 8}});
    EXPECT_EQ(Seen(), "6 2 3 5 1 4 ") << "the pinned one stays";
    EXPECT_EQ(regrouped, "1,4 -> -;") << regrouped;
    EXPECT_EQ(plain, 0);
    EXPECT_EQ(strip.CountChosen(), 3U);
    QTest::mousePress(&widget, Qt::LeftButton, {}, Place(1).center());
    EXPECT_EQ(plain, 0) << "they may be about to be dragged";
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Place(1).center());
    EXPECT_EQ(plain, 1);
    QTest::mousePress(&widget, Qt::LeftButton, {}, Place(2).center());
    EXPECT_EQ(plain, 2);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Place(2).center());
    EXPECT_EQ(plain, 2);
}

TEST_F(TabHeadsTest, TabsAreDraggedOutTogether) {
    std::string told;
    const auto note = [&](const char* what) {
        return [&told, what](const TabStripView::Views& views, auto...) {
            told += what;
            for (const std::int32_t each : views) told += " " + std::to_string(each);
            told += ";";
        };
    };
    widget.DraggedOut.ConnectForLife(note("out"));
    widget.DraggedBack.ConnectForLife(note("back"));
    widget.DroppedOut.ConnectForLife(note("dropped"));
    Drag(Head().center(), {{200, 300}});
    EXPECT_EQ(told, "out 2 3 5;dropped 2 3 5;");
    told.clear();
    for (const int tag : {1, 4}) strip.SetChosen(strip.Find(u"Tab" + Decimal(tag)), true);
    Drag(Place(4).center(), {{200, 300}, Place(4).center()});
    EXPECT_EQ(told, "out 4 1;back 4 1;");
    EXPECT_EQ(Seen(), "6 1 2 3 4 5 ");
    EXPECT_EQ(regrouped, "");
}

TEST_F(TabHeadsTest, WhatIsDraggedMayClose) {
    QTest::mousePress(&widget, Qt::LeftButton, {}, Head().center());
    QTest::mouseMove(&widget, {Place(4).right() - 2, 8});
    for (const int tag : {2, 3, 5}) strip.Remove(strip.Find(u"Tab" + Decimal(tag)));
    QTest::mouseMove(&widget, Place(1).center());
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Place(1).center());
    EXPECT_EQ(Seen(), "6 1 4 ");
    QTest::mousePress(&widget, Qt::LeftButton, {}, Place(4).center());
    QTest::mouseMove(&widget, Place(1).center());
    strip.Remove(strip.Find(u"Tab4"));
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Place(1).center());
    EXPECT_EQ(Seen(), "6 1 ");
    EXPECT_EQ(regrouped, "");
}

TEST_F(TabHeadsTest, TheRowScrollsWithHeadsAndPins) {
    for (int i = 0; i < 50; ++i) Add();
    strip.Select(strip.Find(u"Tab50"));
    EXPECT_FALSE(widget.ListPlace().isEmpty());
    EXPECT_TRUE(widget.rect().contains(Place(50)));
    EXPECT_LT(Place(6).left(), 0);
    strip.SetFolded(group, true);
    strip.Select(strip.Find(u"Tab2"));
    EXPECT_TRUE(widget.rect().contains(Place(2)));
}

TEST_F(TabHeadsTest, TheHeadIsSeenWithTheFirstTabOfItsGroup) {
    for (int i = 0; i < 50; ++i) Add();
    strip.Select(strip.Find(u"Tab50"));
    ASSERT_LT(Head().left(), 0);
    strip.Select(strip.Find(u"Tab3"));
    EXPECT_LT(Head().left(), 0) << "not with any other";
    strip.Select(strip.Find(u"Tab2"));
    EXPECT_EQ(Head().left(), 0);
    widget.resize(Place(2).width() + 100, widget.height());
    strip.Select(strip.Find(u"Tab50"));
    strip.Select(strip.Find(u"Tab2"));
    EXPECT_LT(Head().left(), 0) << "there is no room for both";
    EXPECT_TRUE(widget.rect().contains(Place(2)));
}

TEST_F(TabHeadsTest, TwoHundredGroupsAndAThousandTabsInOneAreShown) {
    for (int i = 0; i < 1000; ++i) strip.SetGroup(Add(), group);
    for (int i = 0; i < 200; ++i) strip.NewGroup(Add(), u"g" + Decimal(i), TabColour::Blue);
    EXPECT_FALSE(widget.grab().isNull());
    strip.SetFolded(group, true);
    EXPECT_EQ(Seen().substr(0, 6), "6 1 4 ");
    for (TabGroup* each : strip.Groups()) strip.SetFolded(each, true);
    EXPECT_EQ(Seen(), "6 1 4 ") << "all others are folded away";
    strip.SetGroup(strip.Find(u"Tab1"), group);
    strip.SetGroup(strip.Find(u"Tab4"), group);
    strip.SetGroup(strip.Find(u"Tab6"), group);
    EXPECT_EQ(Seen(), "1 ") << "only the selected one is seen";
}

TEST_F(TabHeadsTest, AReaderHearsWhatAHeadSaysAndFoldsIt) {
    faces.changed.insert(group->Id());
    strip.SetQueued(At(3), true);
    auto* strips = QAccessible::queryAccessibleInterface(&widget);
    ASSERT_EQ(strips->childCount(), 8) << "six tabs, a head, the button";
    auto* head = Accessible(6);
    EXPECT_EQ(head->role(), QAccessible::Button);
    EXPECT_EQ(ToUtf8(FromQt(head->text(QAccessible::Name))),
              "Group News, 3 tabs, 1 still to load, changed: its tabs and its file differ");
    EXPECT_TRUE(head->state().expanded);
    EXPECT_EQ(strips->indexOfChild(head), 6);
    EXPECT_EQ(head->rect().size(), Head().size());
    EXPECT_EQ(strips->childAt(head->rect().center().x(), head->rect().center().y()), head);
    head->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(group->Folded());
    EXPECT_TRUE(head->state().collapsed);
    EXPECT_TRUE(Accessible(2)->state().invisible);
    EXPECT_FALSE(Accessible(1)->state().invisible);
    int asked = 0;
    widget.GroupMenuRequested.ConnectForLife([&](const TabGroup&) { ++asked; });
    head->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Accessible(7)->text(QAccessible::Name), QStringLiteral("New Tab"));
}

TEST_F(TabHeadsTest, AHeadOfAGroupThatIsGoneSaysNothing) {
    auto* head = Accessible(6);
    for (const int tag : {2, 3, 5}) strip.SetGroup(strip.Find(u"Tab" + Decimal(tag)), nullptr);
    EXPECT_TRUE(head->state().invalid);
    EXPECT_EQ(head->text(QAccessible::Name), QString());
    EXPECT_TRUE(head->rect().isEmpty());
    head->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget)->childCount(), 7);
}

TEST_F(TabHeadsTest, TabsInPanesHaveALineAtTheOuterEdge) {
    const QPoint edge(Place(4).center().x(), 0);
    const QColor plain = ColourAt(edge);
    faces.panes.insert(4);
    widget.RefreshFacesSoon();
    ASSERT_TRUE(QTest::qWaitFor([&] { return ColourAt(edge) != plain; }));
}

// As people with weak eyes need it: four to one, as screens give the light.
TEST_F(TabHeadsTest, TheNameIsReadOnEveryColour) {
    for (int colour = static_cast<int>(TabColour::Red); colour <= static_cast<int>(TabColour::Grey); ++colour) {
        const QColor plain = TabHeadLook::GroundOf(static_cast<TabColour>(colour), false);
        const QColor pointed = TabHeadLook::GroundOf(static_cast<TabColour>(colour), true);
        EXPECT_EQ(TabHeadLook::InkOn(plain), TabHeadLook::InkOn(pointed)) << "the pointer changes no ink " << colour;
        EXPECT_NE(plain, pointed) << colour;
        for (const QColor& ground : {plain, pointed})
            EXPECT_GE(Contrast::Between(ground, TabHeadLook::InkOn(ground)), 4.0) << colour;
    }
}

} // namespace

} // namespace tessa::qt
