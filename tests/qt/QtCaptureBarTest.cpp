#include "qt/QtCaptureBar.h"

#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

TEST(CaptureBar, IsThereForAsLongAsThereIsSomethingToTell) {
    QWidget window;
    QtCaptureBar bar(&window);
    int changes = 0, stops = 0;
    bar.Changed = [&] { ++changes; };
    bar.Stop = [&] { ++stops; };
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

} // namespace
