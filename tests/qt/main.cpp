#include <QApplication>
#include <QToolTip>
#include <QWindow>

#include <gtest/gtest.h>

namespace {

/// A window that a test leaves behind would take the pointer of those after it.
class NoWindowStays final : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (QWindow* each : QGuiApplication::topLevelWindows()) {
            // Tips go by a clock.
            const bool tip = each->type() == Qt::ToolTip;
            EXPECT_TRUE(tip || !each->isVisible()) << "a window stays: " << each->objectName().toStdString();
            if (each->isVisible()) each->hide();
        }
    }
};

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new NoWindowStays);
    return RUN_ALL_TESTS();
}
