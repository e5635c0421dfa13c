#include "qt/questions/CaptureBar.h"

#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(CaptureBar, IsThereForAsLongAsThereIsSomethingToTell) {
    QWidget window;
    qt::CaptureBar bar(&window);
    int changes = 0, stops = 0;
    bar.Changed.ConnectForLife([&] { ++changes; });
    bar.Stop.ConnectForLife([&] { ++stops; });
    bar.Tell({});
    EXPECT_TRUE(bar.isHidden());
    bar.Tell({QStringLiteral("a.example may use your camera.")});
    EXPECT_FALSE(bar.isHidden());
    bar.Tell({QStringLiteral("a.example may use your camera."), QStringLiteral("<b>b</b> may use your screen.")});
    EXPECT_EQ(bar.findChild<QLabel*>()->text(), u"a.example may use your camera. <b>b</b> may use your screen.");
    EXPECT_EQ(bar.findChild<QLabel*>()->textFormat(), Qt::PlainText);
    EXPECT_EQ(bar.accessibleName(), bar.findChild<QLabel*>()->text());
    EXPECT_EQ(changes, 2);
    bar.findChild<QPushButton*>()->click();
    EXPECT_EQ(stops, 1);
    EXPECT_FALSE(bar.isHidden()) << "not before it has ended";
    bar.Tell({});
    EXPECT_TRUE(bar.isHidden());
}

TEST(CaptureBar, CatchesTheEyeAndIsPartedFromWhatIsBelow) {
    qt::CaptureBar bar(nullptr);
    bar.Tell({QStringLiteral("a.example may use your camera.")});
    bar.resize(500, 40);
    const QImage picture = bar.grab().toImage();
    const QColor ground = picture.pixelColor(2, 2), mark = picture.pixelColor(13, 20);
    EXPECT_GT(mark.red(), 2 * mark.green());
    EXPECT_NE(mark, ground);
    EXPECT_NE(picture.pixelColor(250, picture.height() - 1), ground);
}

} // namespace

} // namespace tessa::qt
