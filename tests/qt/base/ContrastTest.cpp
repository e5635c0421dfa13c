#include "qt/base/paint/Contrast.h"

#include <QColor>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(ContrastTest, LuminanceIsThatOfTheStandard) {
    EXPECT_DOUBLE_EQ(Contrast::LuminanceOf(Qt::black), 0);
    EXPECT_DOUBLE_EQ(Contrast::LuminanceOf(Qt::white), 1);
    EXPECT_NEAR(Contrast::LuminanceOf(Qt::red), 0.2126, 1e-6);
    EXPECT_NEAR(Contrast::LuminanceOf(Qt::green), 0.7152, 1e-6);
    EXPECT_NEAR(Contrast::LuminanceOf(Qt::blue), 0.0722, 1e-6);
    EXPECT_NEAR(Contrast::LuminanceOf(QColor(10, 10, 10)), 0.003035, 1e-6) << "where the light grows evenly";
}

TEST(ContrastTest, ContrastIsTheSameBothWays) {
    EXPECT_DOUBLE_EQ(Contrast::Between(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(Contrast::Between(Qt::white, Qt::black), 21);
    EXPECT_DOUBLE_EQ(Contrast::Between(Qt::darkCyan, Qt::darkCyan), 1);
    // Greys known as the last that white is read on, and the first that it is not.
    EXPECT_NEAR(Contrast::Between(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
    EXPECT_NEAR(Contrast::Between(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
}

} // namespace

} // namespace tessa::qt
