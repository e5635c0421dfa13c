#include "qt/bar/MiddleClick.h"

#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>
#include <optional>

namespace tessa::qt {

namespace {

/// What the click was when the entry's command ran; nothing when it did not run.
std::optional<bool> Click(MiddleClick& middle, Qt::MouseButton button) {
    // A menu takes no click where the pointer was when it opened.
    QWidget window;
    window.resize(600, 400);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    QTest::mouseMove(&window, {550, 350});
    QMenu menu;
    QAction* entry = menu.addAction(QStringLiteral("Page"));
    std::optional<bool> now;
    QObject::connect(entry, &QAction::triggered, &menu, [&] { now = middle.Now(); });
    menu.popup(window.mapToGlobal(QPoint(0, 0)));
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&menu));
    QTest::mouseMove(&menu, menu.actionGeometry(entry).center());
    QTest::mousePress(&menu, button, {}, menu.actionGeometry(entry).center());
    QTest::mouseRelease(&menu, button, {}, menu.actionGeometry(entry).center());
    return now;
}

TEST(MiddleClick, TellsAMiddleClickFromTheOthersWhileTheEntrysCommandRuns) {
    MiddleClick middle;
    EXPECT_EQ(Click(middle, Qt::LeftButton), false);
    EXPECT_EQ(Click(middle, Qt::MiddleButton), true);
    QCoreApplication::processEvents();
    EXPECT_FALSE(middle.Now());
    EXPECT_EQ(Click(middle, Qt::LeftButton), false);
}

} // namespace

} // namespace tessa::qt
