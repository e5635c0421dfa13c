#include "qt/base/AddressLabel.h"

#include <QImage>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// The lowest row of pixels that shows something of the label.
int LowestInk(QLabel& label) {
    const QImage picture = label.grab().toImage();
    const QRgb ground = picture.pixel(0, picture.height() - 1);
    for (int y = picture.height() - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != ground) return y;
        }
    }
    return -1;
}

TEST(AddressLabel, IsAsHighAsAnAddressWithoutABreakNeeds) {
    AddressLabel label(QStringLiteral("app:") + QString(196, u'x'), nullptr);
    const int line = label.fontMetrics().height();
    EXPECT_EQ(label.heightForWidth(10000), line);
    EXPECT_GT(label.heightForWidth(300), 2 * line);
    label.resize(300, label.heightForWidth(300));
    EXPECT_GT(LowestInk(label), 2 * line) << "the end of it is shown";
}

TEST(AddressLabel, LetsItsPanelBeNarrow) {
    const AddressLabel label(QString(2000, u'x'), nullptr);
    EXPECT_LE(label.minimumSizeHint().width(), 200);
    EXPECT_TRUE(label.hasHeightForWidth());
}

} // namespace

} // namespace tessa::qt
