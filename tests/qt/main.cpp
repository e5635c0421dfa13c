#include <QApplication>
#include <QToolTip>
#include <QWindow>

#include <gtest/gtest.h>

namespace {

/// A window that a test leaves behind, or a button that it holds, would take the pointer of later ones.
class NothingStays final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { m_held = QGuiApplication::mouseButtons(); }
    void OnTestEnd(const testing::TestInfo&) override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(QGuiApplication::mouseButtons() & ~m_held) << "a button of the mouse stays down";
        for (QWindow* each : QGuiApplication::topLevelWindows()) {
            // Tips go by a clock.
            const bool tip = each->type() == Qt::ToolTip;
            EXPECT_TRUE(tip || !each->isVisible()) << "a window stays: " << each->objectName().toStdString();
            if (each->isVisible()) each->hide();
        }
    }

    Qt::MouseButtons m_held; ///< before the test
};

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new NothingStays);
    return RUN_ALL_TESTS();
}
