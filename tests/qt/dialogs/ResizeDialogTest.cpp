#include "qt/dialogs/ResizeDialog.h"

#include "commands/DesignTimeBar.h"
#include "qt/base/Strings.h"
#include "tests/qt/dialogs/UseDialog.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class ResizeDialogTest : public testing::Test {
protected:
    CommandBar m_bar;
    frmResize m_form{m_bar};

    void SetUp() override {
        DesignTimeBar::Make(m_bar);
        m_bar.FindCombo(u"cboSearch")->Width = Pixels{200};
        m_form.ResizeSearch();
    }

    [[nodiscard]] int Width() const { return m_bar.FindCombo(u"cboSearch")->Width().value; }

    /// What the user does in the open dialog; returns once it is closed.
    void Use(const std::function<void(QDialog&)>& user) {
        UseDialog([&] { ShowModal(m_form, nullptr); }, user);
        EXPECT_FALSE(m_form.Form.Visible());
    }

    static QPushButton& Step(const QDialog& dialog, int index) {
        return *dialog.findChild<QPushButton*>(QStringLiteral("cmdResize%1").arg(index));
    }
};

TEST_F(ResizeDialogTest, ShowsTheStepsFromLeftToRight) {
    ResizeDialog dialog(m_form);
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Resize"));
    std::string captions;
    int left = -1;
    for (int i = 0; i < 8; ++i) {
        captions += Step(dialog, i).text().toStdString() + " ";
        EXPECT_GT(Step(dialog, i).x(), left);
        EXPECT_EQ(Step(dialog, i).width(), Step(dialog, 0).width());
        left = Step(dialog, i).x();
    }
    EXPECT_EQ(captions, "-100 -25 -10 -1 +1 +10 +25 +100 ");
    EXPECT_EQ(dialog.findChild<QPushButton*>(QStringLiteral("cmdClose"))->text(), QStringLiteral("&Close"));
}

TEST_F(ResizeDialogTest, AStepWorksWhileTheDialogIsOpen) {
    Use([this](QDialog& dialog) {
        QTest::mouseClick(&Step(dialog, 7), Qt::LeftButton);
        EXPECT_EQ(Width(), 300);
        EXPECT_FALSE(dialog.isHidden());
        Step(dialog, 1).setFocus();
        QTest::keyClick(&Step(dialog, 1), Qt::Key_Space);
        EXPECT_EQ(Width(), 275);
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdClose")), Qt::LeftButton);
    });
    EXPECT_EQ(Width(), 275);
}

TEST_F(ResizeDialogTest, IsInItsOwnFontOrWhereThatIsMissingInTheUsualOne) {
    const QFont usual = QApplication::font();
    m_form.Font = u"No Such Family";
    EXPECT_EQ(ResizeDialog(m_form).font().families(), usual.families());
    const QStringList all = QFontDatabase::families();
    const auto other = std::ranges::find_if(all, [&](const QString& each) {
        return each != QFontInfo(usual).family() && QFontInfo(QFont(each)).family() == each;
    });
    ASSERT_NE(other, all.end());
    const QString family = *other;
    m_form.Font = FromQt(family);
    ResizeDialog dialog(m_form);
    EXPECT_EQ(dialog.font().families(), QStringList{family});
    EXPECT_EQ(dialog.font().pointSizeF(), usual.pointSizeF());
    EXPECT_EQ(QFontInfo(Step(dialog, 0).font()).family(), family) << "its buttons too";
}

TEST_F(ResizeDialogTest, TheKeyboardBeginsAtClose) {
    Use([](QDialog& dialog) {
        ASSERT_NE(dialog.focusWidget(), nullptr);
        EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("cmdClose"));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
}

TEST_F(ResizeDialogTest, EscapeAndTheCloseButtonClose) {
    Use([](QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape); });
    Use([](QDialog& dialog) { dialog.close(); });
    EXPECT_EQ(Width(), 200);
}

} // namespace

} // namespace tessa::qt
