// Tests: PanelButtons, ButtonMarks
#include "qt/base/paint/PanelButtons.h"
#include "qt/base/paint/Contrast.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QImage>
#include <QMainWindow>
#include <QPalette>
#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

constexpr double kSeenWell = 4.5; // what is asked of texts; a mark may have less

QPalette Colours(QRgb window, QRgb text) {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(window));
    palette.setColor(QPalette::WindowText, QColor(text));
    return palette;
}

struct Surroundings {
    const char* name;
    QRgb window, text;
};
constexpr Surroundings kAll[] = {{"light", 0xffefefef, 0xff232629},
                                 {"dark", 0xff2a2e32, 0xfffcfcfc},
                                 {"white on black", 0xff000000, 0xffffffff},
                                 {"black on white", 0xffffffff, 0xff000000},
                                 {"yellow on black", 0xff000000, 0xffffff00}};

/// A panel of a window, with its buttons.
class PanelButtonsTest : public testing::Test {
protected:
    PanelButtonsTest() {
        m_panel = new QDockWidget(QStringLiteral("Notes"), &m_window);
        m_panel->setWidget(new QWidget);
        new PanelButtons(*m_panel);
        m_window.addDockWidget(Qt::RightDockWidgetArea, m_panel);
        m_window.resize(600, 400);
        m_window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    }
    [[nodiscard]] QAbstractButton& Button(const char* name) const {
        auto* button = m_panel->findChild<QAbstractButton*>(QLatin1String(name));
        EXPECT_NE(button, nullptr) << name;
        return *button;
    }
    /// As it is seen on a screen of that scale.
    [[nodiscard]] QImage Look(const char* name, int scale) const {
        QAbstractButton& button = Button(name);
        QImage image(button.size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(button.palette().color(QPalette::Window));
        button.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

    QMainWindow m_window;
    QDockWidget* m_panel = nullptr;
};

/// How many dots stand out from the ground.
int Seen(const QImage& image, QRgb ground) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += Contrast::Between(image.pixel(x, y), ground) >= kSeenWell;
    return count;
}

/// Whether it is only a picture of half the size, each of whose dots has become four.
bool IsDoubled(const QImage& image) {
    for (int y = 0; y + 1 < image.height(); y += 2)
        for (int x = 0; x + 1 < image.width(); x += 2)
            if (image.pixel(x, y) != image.pixel(x + 1, y) || image.pixel(x, y) != image.pixel(x, y + 1)) return false;
    return true;
}

constexpr const char* kButtons[] = {"qt_dockwidget_closebutton", "qt_dockwidget_floatbutton"};

TEST_F(PanelButtonsTest, AreSeenInAnyColoursAtAnyScale) {
    for (const Surroundings& each : kAll) {
        m_window.setPalette(Colours(each.window, each.text));
        for (const char* name : kButtons) {
            for (const int scale : {1, 2, 3})
                EXPECT_GE(Seen(Look(name, scale), each.window), 6 * scale * scale) << each.name << name << scale;
            EXPECT_FALSE(IsDoubled(Look(name, 2))) << each.name << name;
        }
    }
}

TEST_F(PanelButtonsTest, AreToldApart) { EXPECT_NE(Look(kButtons[0], 1), Look(kButtons[1], 1)); }

TEST_F(PanelButtonsTest, ThePointerOverOneIsSeen) {
    const QImage before = Look(kButtons[0], 1);
    Button(kButtons[0]).setAttribute(Qt::WA_UnderMouse);
    EXPECT_NE(Look(kButtons[0], 1), before);
    Button(kButtons[0]).setAttribute(Qt::WA_UnderMouse, false);
    EXPECT_EQ(Look(kButtons[0], 1), before);
}

TEST_F(PanelButtonsTest, StayPaintedWhateverThePanelMayDo) {
    const QImage before = Look(kButtons[0], 2);
    m_panel->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    m_panel->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable |
                         QDockWidget::DockWidgetFloatable);
    EXPECT_EQ(Look(kButtons[0], 2), before);
    QTest::mouseClick(&Button(kButtons[1]), Qt::LeftButton);
    EXPECT_TRUE(m_panel->isFloating());
    QTest::mouseClick(&Button(kButtons[0]), Qt::LeftButton);
    EXPECT_FALSE(m_panel->isVisible());
}

} // namespace

} // namespace tessa::qt
