// Tests: TileArea
#include "qt/questions/CrashPage.h"
#include "tests/engine/TiledPages.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <map>
#include <set>

namespace tessa::qt {

namespace {

/// Six pages in two rows, of which one does what may disturb the others.
class SixPanes : public TiledPages {
protected:
    void OpenAll(const QByteArray& body) {
        Open(6, body);
        Show(u"v(h(2 3 4) h(5 6 7))");
        for (const int each : kAll) ASSERT_TRUE(WaitUntil([&] { return Visible(each); })) << each;
        desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab4"));
        // Laid out once and for all when each page knows the room that it has.
        for (const int each : kAll) ASSERT_TRUE(KnowsItsRoom(each)) << each;
        before = Places();
        std::set<std::pair<int, int>> corners;
        for (const auto& [index, place] : before) corners.emplace(place.left(), place.top());
        ASSERT_EQ(corners.size(), 6U);
    }
    [[nodiscard]] std::map<int, QRect> Places(int without = 0) const {
        std::map<int, QRect> all;
        for (const int each : kAll)
            if (each != without) all[each] = View(each).Widget()->geometry();
        return all;
    }
    bool KnowsItsRoom(int index) {
        return WaitUntil([&] {
            const QSize size = View(index).Widget()->size();
            return Script(index, QStringLiteral("innerWidth + ' ' + innerHeight")) ==
                   QStringLiteral("%1 %2").arg(size.width()).arg(size.height());
        });
    }
    /// The other five go on: each is seen, and draws.
    void ExpectOthersLive(int without) {
        for (const int each : kAll) {
            if (each == without) continue;
            Script(each, QStringLiteral("requestAnimationFrame(() => { window.drawn = 'yes'; }); 1"));
            EXPECT_TRUE(Says(each, QStringLiteral("window.drawn"), QStringLiteral("yes"))) << each;
            EXPECT_TRUE(Says(each, kVisibility, QStringLiteral("visible"))) << each;
        }
    }
    [[nodiscard]] int Front() const { return desk.main->Tabs().CurrentIndex(); }
    [[nodiscard]] std::string Layout() const { return ToUtf8(TileText(*desk.main->Tiles().Shown())); }
    [[nodiscard]] bool Asks(int index) const { return desk.main->pcPage.Find(u"Tab" + Decimal(index))->Asks(); }

    static constexpr int kAll[] = {2, 3, 4, 5, 6, 7};
    std::map<int, QRect> before; ///< where they lie
};

TEST_F(SixPanes, OneThatFillsTheScreenComesBackToItsPlace) {
    OpenAll("<body onmousedown='document.body.requestFullscreen()'>page");
    ASSERT_TRUE(WaitUntil([&] {
        if (desk.engine.FullScreen().On()) return true;
        QTest::mouseClick(View(4).Widget()->focusProxy(), Qt::LeftButton);
        return desk.engine.FullScreen().On();
    }));
    EXPECT_TRUE(WaitUntil([&] { return View(4).Widget()->geometry() == desk.window.rect(); }));
    EXPECT_TRUE(Says(4, QStringLiteral("String(innerWidth)"), QString::number(desk.window.width())));
    std::map<int, QRect> others = before;
    others.erase(4);
    EXPECT_EQ(Places(4), others);
    ASSERT_TRUE(WaitUntil([&] {
        if (!desk.engine.FullScreen().On()) return true;
        if (auto* focused = QApplication::focusWidget()) QTest::keyClick(focused, Qt::Key_Escape);
        return !desk.engine.FullScreen().On();
    }));
    EXPECT_TRUE(WaitUntil([&] { return Places() == before; }));
    EXPECT_TRUE(KnowsItsRoom(4));
    EXPECT_EQ(Front(), 4);
    EXPECT_EQ(Layout(), "v(h(2 3 4) h(5 6 7))");
    ExpectOthersLive(4);
}

TEST_F(SixPanes, OneThatFillsTheScreenMayClose) {
    OpenAll("<body onmousedown='document.body.requestFullscreen()'>page");
    ASSERT_TRUE(WaitUntil([&] {
        if (desk.engine.FullScreen().On()) return true;
        QTest::mouseClick(View(4).Widget()->focusProxy(), Qt::LeftButton);
        return desk.engine.FullScreen().On();
    }));
    desk.main->CloseBrowserTab(4);
    EXPECT_TRUE(WaitUntil([&] { return !desk.engine.FullScreen().On() && !desk.host.windowIsFull; }));
    EXPECT_EQ(Layout(), "v(h(2 3) h(5 6 7))");
    ASSERT_TRUE(WaitUntil([&] { return Visible(3) && View(3).Widget()->width() > before[3].width(); }));
    EXPECT_TRUE(desk.window.rect().contains(View(3).Widget()->geometry()));
}

TEST_F(SixPanes, OneThatAsksAsksInItsPlaceAndHoldsUpNoOther) {
    OpenAll("page");
    View(6).Page()->runJavaScript(QStringLiteral("document.title = confirm('really?') ? 'yes' : 'no'"));
    ASSERT_TRUE(WaitUntil([&] { return !View(6).Questions()->covers.Empty(); }));
    EXPECT_TRUE(Asks(6));
    EXPECT_EQ(Front(), 4) << "a question takes the focus from no pane";
    auto* ok = desk.window.findChild<QPushButton*>(QStringLiteral("cmdOK"));
    ASSERT_TRUE(ok && WaitUntil([&] { return ok->isVisible(); }));
    EXPECT_TRUE(before[6].contains(QRect(ok->mapTo(&desk.window, QPoint(0, 0)), ok->size())));
    EXPECT_EQ(Places(), before);
    ExpectOthersLive(6);
    ASSERT_TRUE(WaitUntil([&] {
        if (View(6).Questions()->covers.Empty()) return true;
        QTest::mouseClick(ok, Qt::LeftButton);
        return false;
    }));
    EXPECT_TRUE(WaitUntil([&] { return Caption(6) == u"yes"; }));
    EXPECT_FALSE(Asks(6));
}

TEST_F(SixPanes, OneThatWantsSomethingAsksInABarOverItsOwnPage) {
    OpenAll("page");
    Script(7, QStringLiteral("navigator.geolocation.getCurrentPosition(() => {}, () => {}); 1"));
    auto& bar = *View(7).Questions()->bar;
    ASSERT_TRUE(WaitUntil([&] { return bar.isVisible(); }));
    EXPECT_EQ(bar.geometry().topLeft(), before[7].topLeft());
    EXPECT_EQ(bar.width(), before[7].width());
    EXPECT_LE(bar.height(), before[7].height() / 2);
    EXPECT_EQ(Places(), before) << "no page moves under the pointer";
    EXPECT_EQ(Front(), 4);
    ExpectOthersLive(7);
    desk.main->CloseBrowserTab(7);
    ASSERT_TRUE(WaitUntil([&] { return View(6).Widget()->width() > before[6].width(); }));
    EXPECT_EQ(Front(), 4) << "nobody waits for the answer any more";
}

TEST_F(SixPanes, TheRendererOfThePaneInFocusMayDie) {
    OpenAll("page");
    // Pages of one site may share a process: this one is of another.
    ResumeNext(View(4).Navigate(FromQt(server.Address(QStringLiteral("/4"), QStringLiteral("localhost")))));
    ASSERT_TRUE(WaitUntil([&] { return !View(4).Busy() && Caption(4) == u"t4"; }));
    ASSERT_TRUE(Says(4, QStringLiteral("location.hostname"), QStringLiteral("localhost")));
    ASSERT_EQ(View(4).Life()->EndProcess(), Outcome::Done);
    ASSERT_TRUE(WaitUntil([&] { return View(4).CrashPage() != nullptr; }));
    EXPECT_TRUE(WaitUntil([&] { return View(4).CrashPage()->isVisible(); }));
    EXPECT_EQ(View(4).CrashPage()->geometry(), before[4]);
    EXPECT_EQ(Front(), 4);
    EXPECT_EQ(Layout(), "v(h(2 3 4) h(5 6 7))");
    ExpectOthersLive(4);
    // It is closed as it is: the next one gets the keyboard, and the one beside it the room.
    desk.main->CloseBrowserTab(4);
    EXPECT_EQ(Layout(), "v(h(2 3) h(5 6 7))");
    EXPECT_EQ(Front(), 5);
    EXPECT_TRUE(WaitUntil([&] { return View(3).Widget()->width() > before[3].width(); }));
    EXPECT_TRUE(KnowsItsRoom(3));
}

} // namespace

} // namespace tessa::qt
