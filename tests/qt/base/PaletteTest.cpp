#include "qt/base/Palette.h"

#include <QColor>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

QPalette Colours(QRgb window, QRgb text, QRgb hint) {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor::fromRgba(window));
    palette.setColor(QPalette::Base, QColor::fromRgba(window));
    palette.setColor(QPalette::Text, QColor::fromRgba(text));
    palette.setColor(QPalette::PlaceholderText, QColor::fromRgba(hint));
    return palette;
}

TEST(Palette, KnowsDarkWindows) {
    EXPECT_TRUE(Palette::IsDark(Colours(0xff2a2e32, 0xffffffff, 0x80ffffff)));
    EXPECT_FALSE(Palette::IsDark(Colours(0xffefefef, 0xff000000, 0x80000000)));
}

TEST(Palette, AHintThatCannotBeReadTakesAfterTheText) {
    const QPalette mended = Palette::Mended(Colours(0xff1b1e20, 0xfffcfcfc, 0x80000000));
    EXPECT_EQ(mended.color(QPalette::PlaceholderText), QColor(0xfc, 0xfc, 0xfc, 0x80));
}

TEST(Palette, AHintThatCanBeReadStays) {
    for (const QPalette& palette :
         {Colours(0xff1b1e20, 0xfffcfcfc, 0x80ffffff), Colours(0xffffffff, 0xff000000, 0x80000000)})
        EXPECT_EQ(Palette::Mended(palette), palette);
}

TEST(Palette, ColoursThatMarkAreSeenOnLightAndOnDarkAndToldApart) {
    std::vector<QColor> marks;
    for (int colour = static_cast<int>(TabColour::Red); colour <= static_cast<int>(TabColour::Grey); ++colour)
        marks.push_back(Palette::MarkColour(static_cast<TabColour>(colour)));
    for (std::size_t at = 0; at < marks.size(); ++at) {
        EXPECT_GT(qGray(marks[at].rgb()), 60) << at;
        EXPECT_LT(qGray(marks[at].rgb()), 190) << at;
        EXPECT_EQ(std::count(marks.begin(), marks.end(), marks[at]), 1) << at;
    }
    EXPECT_FALSE(Palette::MarkColour(TabColour::None).isValid());
}

} // namespace

} // namespace tessa::qt
