#include "qt/base/Icons.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPalette>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(Icons, TheProgramHasItsOwn) {
    EXPECT_FALSE(Icons::Application().isNull());
    EXPECT_TRUE(Icons::Own(QStringLiteral("none of this name")).isNull());
}

TEST(Icons, APictureThatThereIsNotLeavesItsRoomFree) {
    Icons::ChooseTheme(QGuiApplication::palette());
    EXPECT_TRUE(Icons::Of(Picture()).isNull());
    EXPECT_TRUE(Icons::Of(Picture{u"nosuchpicture"}).isNull());
    EXPECT_FALSE(Icons::OfOrBlank(Picture()).isNull());
}

TEST(Icons, ANumberStandsInTheCornerOfItsPicture) {
    const QIcon icon = Icons::Application();
    EXPECT_EQ(Icons::WithBadge(icon, 0).cacheKey(), icon.cacheKey()) << "none for none";
    const QSize size(32, 32);
    const auto picture = [&](std::size_t number) { return Icons::WithBadge(icon, number).pixmap(size).toImage(); };
    EXPECT_NE(picture(1), icon.pixmap(size).toImage());
    EXPECT_NE(picture(1), picture(2));
    EXPECT_EQ(picture(100), picture(1000)) << "both are more than 99";
}

} // namespace

} // namespace tessa::qt
