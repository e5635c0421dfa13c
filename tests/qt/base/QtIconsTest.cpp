#include "qt/base/QtIcons.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPalette>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(QtIcons, TheProgramHasItsOwn) {
    EXPECT_FALSE(QtIcons::Application().isNull());
    EXPECT_TRUE(QtIcons::Own(QStringLiteral("none of this name")).isNull());
}

TEST(QtIcons, APictureThatThereIsNotLeavesItsRoomFree) {
    QtIcons::ChooseTheme(QGuiApplication::palette());
    EXPECT_TRUE(QtIcons::Of(Picture()).isNull());
    EXPECT_TRUE(QtIcons::Of(Picture{u"nosuchpicture"}).isNull());
    EXPECT_FALSE(QtIcons::OfOrBlank(Picture()).isNull());
}

TEST(QtIcons, ANumberStandsInTheCornerOfItsPicture) {
    const QIcon icon = QtIcons::Application();
    EXPECT_EQ(QtIcons::WithBadge(icon, 0).cacheKey(), icon.cacheKey()) << "none for none";
    const QSize size(32, 32);
    const auto picture = [&](std::size_t number) { return QtIcons::WithBadge(icon, number).pixmap(size).toImage(); };
    EXPECT_NE(picture(1), icon.pixmap(size).toImage());
    EXPECT_NE(picture(1), picture(2));
    EXPECT_EQ(picture(100), picture(1000)) << "both are more than 99";
}

} // namespace

} // namespace tessa::qt
