#include "qt/base/paint/DarkFrames.h"
#include "qt/base/paint/Contrast.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QStyleFactory>
#include <algorithm>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

QPalette DesktopColours(QRgb window, QRgb base, QRgb text) {
    QPalette palette{QColor(window)};
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, QColor(text));
    palette.setColor(QPalette::Base, QColor(base));
    return palette;
}

/// Boxes as they look in that style and these colours.
class DarkFramesTest : public testing::Test {
protected:
    QImage Look(QWidget& widget, QStyle& style, const QPalette& palette, int scale = 1) {
        widget.setStyle(&style);
        widget.setPalette(palette);
        widget.resize(widget.sizeHint());
        QImage image(widget.size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(palette.color(QPalette::Window));
        widget.render(&image, {}, {}, QWidget::DrawChildren);
        widget.setStyle(nullptr);
        return image;
    }
    /// The most that any dot in the row through the middle stands out from the window.
    static double MostAcross(const QImage& image, QRgb ground, int from, int to) {
        double most = 1;
        for (int x = from; x < to; ++x)
            most = std::max(most, Contrast::Between(image.pixel(x, image.height() / 2), ground));
        return most;
    }

    const QPalette dark = DesktopColours(0xff2a2e32, 0xff1b1e20, 0xfffcfcfc);
    const QPalette light = DesktopColours(0xffefefef, 0xffffffff, 0xff232629);
    DarkFrames frames;
    std::unique_ptr<QStyle> plain{QStyleFactory::create(QStringLiteral("fusion"))};
};

TEST_F(DarkFramesTest, BoxesToTickAreSeenInTheDark) {
    QCheckBox check;
    QRadioButton radio;
    for (QWidget* each : {static_cast<QWidget*>(&check), static_cast<QWidget*>(&radio)}) {
        for (const int scale : {1, 2}) {
            const QImage before = Look(*each, *plain, dark, scale), now = Look(*each, frames, dark, scale);
            EXPECT_LT(MostAcross(before, 0xff2a2e32, 0, before.width()), 2) << "else there is nothing to mend";
            EXPECT_GT(MostAcross(now, 0xff2a2e32, 0, now.width()), 3);
        }
    }
}

TEST_F(DarkFramesTest, WhatIsTickedAndWhatIsNotAreToldApart) {
    QCheckBox check;
    const QImage empty = Look(check, frames, dark);
    check.setChecked(true);
    EXPECT_NE(Look(check, frames, dark), empty);
}

TEST_F(DarkFramesTest, WhatCannotBeTickedIsFainter) {
    QCheckBox check;
    const double may = MostAcross(Look(check, frames, dark), 0xff2a2e32, 0, 6);
    check.setEnabled(false);
    const double mayNot = MostAcross(Look(check, frames, dark), 0xff2a2e32, 0, 6);
    EXPECT_LT(mayNot, may);
    EXPECT_GT(mayNot, 1.3);
}

TEST_F(DarkFramesTest, BoxesToTypeInAreFramedInTheDark) {
    QLineEdit box;
    const QImage now = Look(box, frames, dark);
    EXPECT_GT(MostAcross(now, 0xff2a2e32, 0, 2), 1.8);
    box.setFrame(false);
    EXPECT_LT(MostAcross(Look(box, frames, dark), 0xff2a2e32, 0, 2), 1.3) << "but not those without one";
}

TEST_F(DarkFramesTest, NothingDiffersInLightColours) {
    QCheckBox check;
    QRadioButton radio;
    QLineEdit box;
    for (QWidget* each : {static_cast<QWidget*>(&check), static_cast<QWidget*>(&radio), static_cast<QWidget*>(&box)})
        EXPECT_EQ(Look(*each, frames, light), Look(*each, *plain, light));
}

TEST_F(DarkFramesTest, TakesThePlaceOfQtsOwnStyleAlone) {
    const QString before = QApplication::style()->name();
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("windows")));
    DarkFrames::Install();
    EXPECT_EQ(qobject_cast<DarkFrames*>(QApplication::style()), nullptr);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    DarkFrames::Install();
    EXPECT_NE(qobject_cast<DarkFrames*>(QApplication::style()), nullptr);
    QApplication::setStyle(QStyleFactory::create(before));
}

} // namespace

} // namespace tessa::qt
