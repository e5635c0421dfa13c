#include "qt/base/SelectedIcon.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

QIcon Filled(const QColor& color) {
    QPixmap picture(32, 32);
    picture.fill(Qt::transparent);
    QPainter(&picture).fillRect(8, 8, 16, 16, color);
    return QIcon(picture);
}

QColor MiddleOf(const QIcon& icon, QIcon::Mode mode) {
    const QImage image = icon.pixmap(QSize(32, 32), 1, mode).toImage();
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

TEST(SelectedIcon, APictureOfOneColourTakesThatOfTheSelectedText) {
    const QColor text = QGuiApplication::palette().color(QPalette::HighlightedText);
    for (const QColor& grey :
         {QColor(0xfc, 0xfc, 0xfc), QColor(0x23, 0x26, 0x29), QColor(Qt::black), QColor(0x3d, 0xae, 0xe9)}) {
        const QIcon icon = WithSelectedLook(Filled(grey));
        EXPECT_EQ(MiddleOf(icon, QIcon::Selected), text);
        EXPECT_EQ(MiddleOf(icon, QIcon::Normal), grey) << "elsewhere it is as it was";
        EXPECT_EQ(icon.pixmap(QSize(32, 32), 1, QIcon::Selected).toImage().pixelColor(1, 1).alpha(), 0);
    }
}

TEST(SelectedIcon, APictureOfColoursStays) {
    QPixmap picture = Filled(QColor(0xe0, 0x40, 0x20)).pixmap(QSize(32, 32));
    QPainter(&picture).fillRect(8, 8, 4, 16, QColor(0x20, 0x40, 0xe0));
    EXPECT_EQ(MiddleOf(WithSelectedLook(QIcon(picture)), QIcon::Selected), QColor(0xe0, 0x40, 0x20));
}

TEST(SelectedIcon, IsAsSharpAsTheScreen) {
    const QIcon icon = WithSelectedLook(Filled(Qt::black));
    const QPixmap drawn = icon.pixmap(QSize(16, 16), 2, QIcon::Selected);
    EXPECT_EQ(drawn.size(), QSize(32, 32));
    EXPECT_EQ(drawn.devicePixelRatio(), 2);
}

TEST(SelectedIcon, APagesPictureThatHidesOnTheSelectionTakesTheColourOfItsText) {
    const QPalette palette = QGuiApplication::palette();
    const QColor ground = palette.color(QPalette::Highlight);
    const QIcon icon = WithSelectedPageLook(Filled(ground));
    EXPECT_EQ(MiddleOf(icon, QIcon::Selected), palette.color(QPalette::HighlightedText));
    EXPECT_EQ(MiddleOf(icon, QIcon::Normal), ground);
}

TEST(SelectedIcon, APagesPictureThatCanBeSeenKeepsItsColours) {
    const QColor ground = QGuiApplication::palette().color(QPalette::Highlight);
    const QColor seen = ground.lightnessF() > 0.4 ? Qt::black : Qt::yellow;
    EXPECT_EQ(MiddleOf(WithSelectedPageLook(Filled(seen)), QIcon::Selected), seen);
    // A letter on a ground that hides: drawn in one colour it could not be read.
    QPixmap letter = Filled(ground).pixmap(QSize(32, 32));
    QPainter(&letter).fillRect(10, 10, 2, 12, seen);
    EXPECT_EQ(MiddleOf(WithSelectedPageLook(QIcon(letter)), QIcon::Selected), ground);
}

TEST(SelectedIcon, OfNoPictureThereIsNone) {
    EXPECT_TRUE(WithSelectedLook(QIcon()).isNull());
    EXPECT_TRUE(WithSelectedPageLook(QIcon()).isNull());
}

} // namespace

} // namespace tessa::qt
