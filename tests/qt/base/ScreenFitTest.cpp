#include "qt/base/ScreenFit.h"

#include "qt/window/MainWindowFrame.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// A dialog with fields above its buttons.
class Form final : public QDialog {
public:
    explicit Form(QSize fields) {
        auto* column = new QVBoxLayout(this);
        box->setMinimumSize(fields);
        column->addWidget(box);
        column->addWidget(buttons);
    }
    [[nodiscard]] QScrollArea* Area() const { return findChild<QScrollArea*>(QStringLiteral("screenFit")); }

    QLineEdit* box = new QLineEdit;
    QDialogButtonBox* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
};

QRect FreeScreen() { return QGuiApplication::primaryScreen()->availableGeometry(); }

QRect OnScreen(const QWidget& widget) { return {widget.mapToGlobal(QPoint(0, 0)), widget.size()}; }

TEST(ScreenFit, AFrameInsideStaysAndOneOutsideComesIn) {
    const QRect free(10, 30, 700, 400);
    EXPECT_EQ(ScreenFit::Within({50, 60, 300, 200}, free), QRect(50, 60, 300, 200));
    EXPECT_EQ(ScreenFit::Within(free, free), free);
    EXPECT_EQ(ScreenFit::Within({-100, 0, 300, 200}, free), QRect(10, 30, 300, 200));
    EXPECT_EQ(ScreenFit::Within({600, 420, 300, 200}, free), QRect(410, 230, 300, 200));
    EXPECT_EQ(ScreenFit::Within({5000, 430, 300, 200}, free), QRect(410, 230, 300, 200));
    EXPECT_EQ(ScreenFit::Within({50, 60, 1024, 768}, free), free);
    EXPECT_EQ(ScreenFit::Within({50, 60, 1024, 100}, free), QRect(10, 60, 700, 100));
}

TEST(ScreenFit, AFrameOnNoScreenCountsForTheFirst) {
    EXPECT_EQ(ScreenFit::FreeAround({90000, 90000, 100, 100}), FreeScreen());
    EXPECT_EQ(ScreenFit::FreeAround({20, 20, 100, 100}), FreeScreen());
}

TEST(ScreenFit, ADialogThatFitsStaysAsItIs) {
    const ScreenFit fit;
    Form form({200, 100});
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_EQ(form.Area(), nullptr);
    EXPECT_TRUE(FreeScreen().contains(form.frameGeometry()));
}

TEST(ScreenFit, ADialogLargerThanTheScreenScrollsAboveItsButtons) {
    const ScreenFit fit;
    Form form({200, 3000});
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_TRUE(QTest::qWaitFor([&] { return FreeScreen().contains(form.frameGeometry()); }));
    ASSERT_NE(form.Area(), nullptr);
    EXPECT_TRUE(form.box->isVisible());
    EXPECT_EQ(form.box->height(), 3000);
    EXPECT_TRUE(form.Area()->isAncestorOf(form.box));
    EXPECT_TRUE(QTest::qWaitFor([&] { return FreeScreen().contains(OnScreen(*form.buttons)); }));
    EXPECT_TRUE(form.buttons->isVisible());
    form.hide();
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_EQ(form.findChildren<QScrollArea*>().size(), 1) << "once is enough";
}

TEST(ScreenFit, ADialogThatAskedForTooMuchIsMadeSmaller) {
    const ScreenFit fit;
    Form form({100, 20});
    form.resize(5000, 5000);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_TRUE(QTest::qWaitFor([&] { return FreeScreen().contains(form.frameGeometry()); }));
    EXPECT_EQ(form.Area(), nullptr);
}

/// Would like to be higher than any screen, and need not.
struct HighField final : QLineEdit {
    [[nodiscard]] QSize sizeHint() const override { return {200, 3000}; }
};

TEST(ScreenFit, ADialogOfAFixedSizeGetsSmallerWhereItHasTo) {
    const ScreenFit fit;
    Form form({100, 20});
    form.layout()->setSizeConstraint(QLayout::SetFixedSize);
    auto* high = new HighField;
    high->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    qobject_cast<QVBoxLayout*>(form.layout())->insertWidget(0, high);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_TRUE(QTest::qWaitFor([&] { return FreeScreen().contains(form.frameGeometry()); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return FreeScreen().contains(OnScreen(*form.buttons)); }));
    EXPECT_EQ(form.Area(), nullptr) << "nothing is out of sight, so nothing scrolls";
}

TEST(ScreenFit, ADialogPlacedBesideTheScreenComesIn) {
    const ScreenFit fit;
    Form form({100, 20});
    form.move(FreeScreen().right() - 10, FreeScreen().bottom() - 10);
    form.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return FreeScreen().contains(form.frameGeometry()); }));
}

TEST(ScreenFit, TheMainWindowOpensInsideTheScreen) {
    const QRect free = FreeScreen();
    MainWindowFrame window;
    window.SetPlace({ToTwips({free.right() - 20}), ToTwips({free.bottom()}), {9000}, {6000}});
    EXPECT_TRUE(free.contains(QRect(window.pos(), window.size()))) << "before it is shown";
    window.Show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return free.contains(window.frameGeometry()); }));
    EXPECT_EQ(window.size(), QSize(600, 400)) << "what fits keeps its size";
}

TEST(ScreenFit, AFreshMainWindowIsNoLargerThanTheScreen) {
    MainWindowFrame window;
    window.SetSize({90000}, {90000});
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(QTest::qWaitFor([&] { return FreeScreen().contains(window.frameGeometry()); }));
    EXPECT_GT(window.width(), FreeScreen().width() / 2);
}

TEST(ScreenFit, AMaximizedWindowStays) {
    MainWindowFrame window;
    window.SetState(WindowState::Maximized);
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QRect before = window.geometry();
    ScreenFit::Fit(window);
    EXPECT_EQ(window.geometry(), before);
    EXPECT_EQ(window.State(), WindowState::Maximized);
}

} // namespace

} // namespace tessa::qt
