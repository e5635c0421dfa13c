// Tests: TileArea
#include "tests/engine/TiledPages.h"
#include "tests/qt/base/TwoScreens.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <set>
#include <utility>

namespace tessa::qt {

namespace {

constexpr int kFrame = 8; // of the page, in its own pixels

// A red frame round green, and a line that is a single dot wide where two dots are a pixel.
const QByteArray kFramed = "<body style='margin:0;background:#00c000'>"
                           "<div style='position:fixed;inset:0;box-sizing:border-box;border:8px solid #c00000'></div>"
                           "<div style='position:fixed;left:40px;top:40px;width:.5px;height:20px;background:#000'>";

/// Played by a process of its own that has two screens, see below.
class RolePagesOnTwoScreens : public TiledPages {
protected:
    void MoveTo(QPoint corner) { scales.insert(TwoScreens::Move(desk.window, {corner, QSize(1000, 700)})); }
    [[nodiscard]] qreal Scale() const { return desk.window.screen()->devicePixelRatio(); }
    [[nodiscard]] QImage Picture(int index) const { return View(index).Widget()->grab().toImage(); }

    /// What is wrong with the picture of a page; empty when it is drawn whole, at the scale of its screen.
    [[nodiscard]] std::string Wrong(int index) const {
        const QImage picture = Picture(index);
        if (picture.size() != View(index).Widget()->size() * Scale()) return "size";
        const int right = picture.width() - 1, bottom = picture.height() - 1;
        const QPoint middle(right / 2, bottom / 2);
        const int inFrame = static_cast<int>(kFrame * Scale()) - 2, behind = inFrame + 4;
        const auto is = [&](int x, int y, QRgb colour) { return picture.pixel(x, y) == colour; };
        for (const int depth : {0, inFrame}) {
            if (!is(depth, middle.y(), kRed) || !is(right - depth, middle.y(), kRed)) return "frame at the sides";
            if (!is(middle.x(), depth, kRed) || !is(middle.x(), bottom - depth, kRed)) return "frame above or below";
        }
        if (!is(behind, middle.y(), kGreen) || !is(right - behind, middle.y(), kGreen)) return "left or right of it";
        if (!is(middle.x(), behind, kGreen) || !is(middle.x(), bottom - behind, kGreen)) return "above or below it";
        return Scale() == 2 && DarkDots(picture) != 1 ? "the line is " + std::to_string(DarkDots(picture)) : "";
    }
    void ExpectWhole() {
        for (const int shown : {2, 3}) {
            EXPECT_TRUE(WaitUntil([&] { return Wrong(shown).empty(); })) << shown << ": " << Wrong(shown);
            EXPECT_TRUE(Says(shown, QStringLiteral("String(devicePixelRatio)"), QString::number(Scale()))) << shown;
            EXPECT_TRUE(
                Says(shown, QStringLiteral("innerWidth + ' ' + innerHeight"),
                     QStringLiteral("%1 %2").arg(View(shown).Widget()->width()).arg(View(shown).Widget()->height())))
                << shown;
        }
        EXPECT_LT(View(2).Widget()->geometry().right(), View(3).Widget()->geometry().left());
    }

    std::set<qreal> scales; ///< that the window has had

private:
    static constexpr QRgb kRed = 0xffc00000, kGreen = 0xff00c000;

    /// How wide the line is.
    [[nodiscard]] int DarkDots(const QImage& picture) const {
        int count = 0;
        for (int x = static_cast<int>(30 * Scale()); x < 50 * Scale(); ++x)
            count += picture.pixel(x, static_cast<int>(50 * Scale())) == 0xff000000;
        return count;
    }
};

TEST_F(RolePagesOnTwoScreens, DISABLED_AreDrawnWholeOnBothAndAcross) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    ASSERT_EQ(screens.size(), 2);
    ASSERT_NE(screens[0]->devicePixelRatio(), screens[1]->devicePixelRatio());
    Open(2, kFramed);
    Show(u"h(2 3)");
    const QPoint first = screens[0]->geometry().topLeft() + QPoint(40, 40);
    MoveTo(first);
    ExpectWhole();
    const QRect second = screens[1]->geometry();
    // On the other screen, with its right half there and with its left half, and back again.
    for (const QPoint to : {second.topLeft() + QPoint(40, 40), QPoint(second.left() - 300, second.top() + 40),
                            QPoint(second.left() - 700, second.top() + 40), first}) {
        MoveTo(to);
        SCOPED_TRACE(to.x());
        ExpectWhole();
    }
    EXPECT_EQ(scales.size(), 2U) << "it was on both";
    // What comes to the front on the other screen was never drawn for it.
    desk.main->Tiles().ToggleFull(2);
    ASSERT_TRUE(WaitUntil([&] { return !Visible(3); }));
    MoveTo(second.topLeft() + QPoint(40, 40));
    desk.main->Tiles().ToggleFull(2);
    ASSERT_TRUE(WaitUntil([&] { return Visible(2) && Visible(3); }));
    ExpectWhole();
}

TEST(PagesOnTwoScreens, EachScaledInItsWay) {
    for (const auto& [left, right] : {std::pair{"1", "2"}, {"2", "1"}})
        TwoScreens{{2400, 1600}, left, right}.Play("RolePagesOnTwoScreens");
}

} // namespace

} // namespace tessa::qt
