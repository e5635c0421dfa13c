// Tests: LinkedScroll, TileAssembly
#include "qt/questions/CrashPage.h"
#include "tests/engine/TiledPages.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace tessa::qt {

namespace {

TEST_F(TiledPages, EachShownPageIsVisibleToItselfAndNoOther) {
    Open(4, "page");
    Show(u"h(2 v(3 4))");
    for (const int shown : {2, 3, 4}) EXPECT_TRUE(Says(shown, kVisibility, QStringLiteral("visible"))) << shown;
    EXPECT_TRUE(Says(5, kVisibility, QStringLiteral("hidden")));
    desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab5"));
    EXPECT_TRUE(Says(5, kVisibility, QStringLiteral("visible")));
    for (const int hidden : {2, 3, 4}) EXPECT_TRUE(Says(hidden, kVisibility, QStringLiteral("hidden"))) << hidden;
    desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab3"));
    desk.main->Tiles().ToggleFull(3);
    EXPECT_TRUE(Says(3, kVisibility, QStringLiteral("visible")));
    for (const int hidden : {2, 4, 5}) EXPECT_TRUE(Says(hidden, kVisibility, QStringLiteral("hidden"))) << hidden;
}

TEST_F(TiledPages, PagesFillTheirPanes) {
    Open(2, "page");
    const QRect whole = Whole();
    Show(u"h(2 3)");
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && Visible(3); }));
    EXPECT_TRUE(WaitUntil([&] { return View(2).Widget()->geometry().right() < View(3).Widget()->geometry().left(); }));
    for (const int shown : {2, 3}) {
        EXPECT_TRUE(WaitUntil([&] { return Script(shown, QStringLiteral("innerWidth")).toInt() < 500; }));
        EXPECT_EQ(Script(shown, QStringLiteral("innerWidth")).toInt(), View(shown).Widget()->width());
    }
    desk.main->Tiles().Dissolve();
    ASSERT_TRUE(WaitUntil([&] { return !Visible(3) || !Visible(2); }));
    const int left = Visible(2) ? 2 : 3;
    EXPECT_TRUE(WaitUntil([&] { return View(left).Widget()->geometry() == whole; }));
}

TEST_F(TiledPages, AClickIntoAPageSelectsItsTabAndReachesThePage) {
    Open(2, "<body onmousedown='document.title = 1'>page");
    Show(u"h(2 3)");
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && Visible(3); }));
    const int front = desk.main->Tabs().CurrentIndex(), other = 5 - front;
    auto* target = View(other).Widget()->focusProxy();
    EXPECT_TRUE(WaitUntil([&] {
        QTest::mouseClick(target, Qt::LeftButton);
        return Caption(other) == u"1";
    }));
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), other);
    EXPECT_TRUE(Visible(front)) << "the other one stays";
}

TEST_F(TiledPages, NoPageBesideTheFrontTakesTheKeyboard) {
    Open(2, "<input id=i>");
    Show(u"h(2 3)");
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && Visible(3); }));
    const int front = desk.main->Tabs().CurrentIndex(), other = 5 - front;
    desk.window.activateWindow();
    View(front).SetFocus();
    ASSERT_TRUE(Says(front, QStringLiteral("document.hasFocus()"), QStringLiteral("true")));
    Script(other, QStringLiteral("window.focus(); document.getElementById('i').focus(); 1"));
    View(other).Widget()->setFocus();
    EXPECT_TRUE(Says(front, QStringLiteral("document.hasFocus()"), QStringLiteral("true")));
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), front);
}

TEST_F(TiledPages, ADialogInAnotherPaneTakesNoKeyboard) {
    Open(2, "page");
    Show(u"h(2 3)");
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && Visible(3); }));
    const int front = desk.main->Tabs().CurrentIndex(), other = 5 - front;
    desk.window.activateWindow();
    View(front).SetFocus();
    ASSERT_TRUE(Says(front, QStringLiteral("document.hasFocus()"), QStringLiteral("true")));
    View(other).Page()->runJavaScript(QStringLiteral("alert('x')"));
    ASSERT_TRUE(WaitUntil([&] { return !View(other).Questions()->covers.Empty(); }));
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), front);
    EXPECT_EQ(Script(front, QStringLiteral("document.hasFocus()")), QStringLiteral("true"));
    auto* ok = desk.window.findChild<QPushButton*>(QStringLiteral("cmdOK"));
    ASSERT_TRUE(ok && ok->isVisible());
    const QPoint middle = ok->mapTo(&desk.window, ok->rect().center());
    EXPECT_TRUE(View(other).Widget()->geometry().contains(middle)) << "it lies over its own page";
    ASSERT_TRUE(WaitUntil([&] {
        if (View(other).Questions()->covers.Empty()) return true;
        QTest::mouseClick(ok, Qt::LeftButton);
        return false;
    }));
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), other) << "whoever answers is there";
}

TEST_F(TiledPages, APageThatFillsTheScreenGivesItUpWithTheFocus) {
    Open(2, "<div id=d>x</div>");
    Show(u"h(2 3)");
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && Visible(3); }));
    const int front = desk.main->Tabs().CurrentIndex(), other = 5 - front;
    Script(front, QStringLiteral("document.body.onmousedown = () => document.body.requestFullscreen(); 1"));
    ASSERT_TRUE(WaitUntil([&] {
        if (desk.engine.FullScreen().On()) return true;
        QTest::mouseClick(View(front).Widget()->focusProxy(), Qt::LeftButton);
        return desk.engine.FullScreen().On();
    }));
    EXPECT_TRUE(Visible(other));
    desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab" + Decimal(other)));
    EXPECT_TRUE(WaitUntil([&] { return !desk.engine.FullScreen().On(); })) << "keys go to a page that is seen";
    EXPECT_TRUE(WaitUntil([&] {
        return Visible(front) && !View(front).Widget()->geometry().intersects(View(other).Widget()->geometry());
    }));
}

TEST_F(TiledPages, ARendererThatDiesLeavesTheOtherPanes) {
    Open(3, "page");
    Show(u"h(2 3 4)");
    for (const int shown : {2, 3, 4}) ASSERT_TRUE(WaitUntil([&] { return Visible(shown); }));
    desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab2"));
    // Pages of one site may share a process.
    ASSERT_EQ(View(3).Life()->EndProcess(), Outcome::Done);
    ASSERT_TRUE(WaitUntil([&] { return View(3).CrashPage() != nullptr; }));
    auto* crash = View(3).CrashPage();
    EXPECT_TRUE(WaitUntil([&] { return crash->isVisible(); }));
    EXPECT_EQ(crash->geometry(), View(3).Widget()->geometry());
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), 2);
    EXPECT_EQ(ToUtf8(TileText(*desk.main->Tiles().Shown())), "h(2 3 4)");
    ResumeNext(View(3).Refresh());
    EXPECT_TRUE(WaitUntil([&] { return View(3).CrashPage() == nullptr && !View(3).Busy(); }));
    EXPECT_TRUE(Says(3, kVisibility, QStringLiteral("visible")));
}

TEST_F(TiledPages, ClosingThePaneInFocusShowsTheNextOneThere) {
    Open(3, "page");
    const QRect whole = Whole();
    Show(u"h(2 3)");
    desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab2"));
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && Visible(3) && !Visible(4); }));
    desk.main->CloseBrowserTab(2);
    ASSERT_TRUE(WaitUntil([&] { return desk.engine.Front() == &View(3); }));
    EXPECT_TRUE(WaitUntil([&] { return View(3).Widget()->geometry() == whole; }));
    EXPECT_FALSE(Visible(4));
}

TEST_F(TiledPages, ShownPagesStayAwakeAndSleepersWakeInTheirPanes) {
    TabSleep::Time& now = desk.steady.now;
    now = std::chrono::hours(100);
    desk.main->Sleep().SetPatience(std::chrono::minutes(10));
    Open(3, "page");
    Show(u"h(2 3)");
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && Visible(3) && !Visible(4); }));
    ASSERT_TRUE(WaitUntil([&] {
        now += std::chrono::minutes(30);
        desk.main->Sleep().Look();
        return View(4).Life()->Asleep();
    }));
    EXPECT_FALSE(View(2).Life()->Asleep());
    EXPECT_FALSE(View(3).Life()->Asleep());
    EXPECT_TRUE(desk.main->Tiles().ShowBeside(4));
    EXPECT_TRUE(WaitUntil([&] { return !View(4).Life()->Asleep() && !View(4).Busy(); }));
    EXPECT_TRUE(Says(4, kVisibility, QStringLiteral("visible")));
}

const QByteArray kLong = "<body style='margin:0'><div style='height: 4000px'>top</div>needle<div style='height: "
                         "900px'></div>";

TEST_F(TiledPages, LinkedPanesScrollTogether) {
    Open(3, kLong);
    Show(u"h(2 3 4) linked");
    for (const int shown : {2, 3, 4}) ASSERT_TRUE(WaitUntil([&] { return Visible(shown); }));
    auto* target = View(3).Widget()->focusProxy();
    const QString atEnd = QStringLiteral("String(scrollY > 1000 && scrollY + innerHeight + 2 >= "
                                         "document.scrollingElement.scrollHeight)");
    desk.window.activateWindow();
    desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab3"));
    ASSERT_TRUE(Says(3, QStringLiteral("document.hasFocus()"), QStringLiteral("true")));
    ASSERT_TRUE(WaitUntil([&] {
        QTest::keyClick(target, Qt::Key_End);
        return Script(3, atEnd) == u"true";
    }));
    EXPECT_TRUE(Says(2, atEnd, QStringLiteral("true")));
    EXPECT_TRUE(Says(4, atEnd, QStringLiteral("true")));
    desk.main->Tiles().ToggleLinked();
    Script(2, QStringLiteral("scrollTo(0, 0); 1"));
    Settle(desk.engine, View(2).Page());
    EXPECT_EQ(Script(3, atEnd), QStringLiteral("true")) << "no longer";
}

TEST_F(TiledPages, LinkedPanesFindTogether) {
    Open(2, kLong);
    Show(u"h(2 3) linked");
    for (const int shown : {2, 3}) ASSERT_TRUE(WaitUntil([&] { return Visible(shown); }));
    findBar.Open();
    findBar.findChild<QLineEdit*>(QStringLiteral("txtFind"))->setText(QStringLiteral("needle"));
    for (const int shown : {2, 3})
        EXPECT_TRUE(Says(shown, QStringLiteral("String(scrollY > 1000)"), QStringLiteral("true")));
    findBar.Close();
}

TEST_F(TiledPages, ATabIsDraggedFromTheStripToThePageThatWasInFront) {
    Open(2, "page");
    strip.resize(1000, strip.RowHeight().value);
    strip.setParent(&desk.window);
    strip.show();
    desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab2"));
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && !Visible(3); }));
    const std::size_t position = desk.main->pcPage.PositionOf(desk.main->pcPage.Find(u"Tab3"));
    const QPoint from = strip.TabPlace(position).center();
    QTest::mousePress(&strip, Qt::LeftButton, {}, from);
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), 3) << "pressing a tab selects it";
    for (const int y : {20, 60, 200, 350}) QTest::mouseMove(&strip, QPoint(990, y));
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), 2) << "what it can be dropped on is shown again";
    auto* zone = desk.window.findChild<QWidget*>(QStringLiteral("tileDropZone"));
    EXPECT_TRUE(zone->isVisible());
    QTest::mouseRelease(&strip, Qt::LeftButton, {}, QPoint(990, 350));
    EXPECT_FALSE(zone->isVisible());
    ASSERT_TRUE(desk.main->Tiles().Shown());
    EXPECT_EQ(ToUtf8(TileText(*desk.main->Tiles().Shown())), "h(2 3)");
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), 3);
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && Visible(3); }));
}

TEST_F(TiledPages, TabsThatAreChosenAreDraggedFromTheStripTogether) {
    Open(4, "page");
    strip.resize(1000, strip.RowHeight().value);
    strip.setParent(&desk.window);
    strip.show();
    desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab2"));
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && !Visible(3); }));
    desk.main->Choice().Replace({3, 4});
    const QPoint from = strip.TabPlace(desk.main->pcPage.PositionOf(desk.main->pcPage.Find(u"Tab4"))).center();
    QTest::mousePress(&strip, Qt::LeftButton, {}, from);
    for (const int y : {20, 60, 200, 350}) QTest::mouseMove(&strip, QPoint(990, y));
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), 2);
    QTest::mouseRelease(&strip, Qt::LeftButton, {}, QPoint(990, 350));
    ASSERT_TRUE(desk.main->Tiles().Shown());
    EXPECT_EQ(ToUtf8(TileText(*desk.main->Tiles().Shown())), "h(2 4:500 3:500)") << "the dropped one first";
    EXPECT_EQ(desk.main->Choice().Count(), 2U);
    for (const int shown : {2, 3, 4}) ASSERT_TRUE(WaitUntil([&] { return Visible(shown); }));
}

TEST_F(TiledPages, ATabThatIsDroppedNowhereIsOnlySelected) {
    Open(2, "page");
    strip.resize(1000, strip.RowHeight().value);
    strip.show();
    desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab2"));
    const std::size_t position = desk.main->pcPage.PositionOf(desk.main->pcPage.Find(u"Tab3"));
    const QPoint from = strip.TabPlace(position).center();
    QTest::mousePress(&strip, Qt::LeftButton, {}, from);
    QTest::mouseMove(&strip, QPoint(from.x(), 200));
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), 2);
    QTest::mouseMove(&strip, from);
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), 3) << "back in the row";
    QTest::mouseMove(&strip, QPoint(from.x(), 9000));
    QTest::mouseRelease(&strip, Qt::LeftButton, {}, QPoint(from.x(), 9000));
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), 3);
    EXPECT_EQ(desk.main->Tiles().Shown(), nullptr);
}

} // namespace

} // namespace tessa::qt
