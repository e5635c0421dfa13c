#include "qt/dialogs/DefBrowserDialog.h"

#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeSettings.h"
#include "tests/qt/dialogs/UseDialog.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class DefBrowserDialogTest : public testing::Test {
protected:
    FakeSettings m_settings;
    FakeDefaultBrowser m_helper;
    frmDefBrowser m_form{m_settings, m_helper, u"/programs/tessaview"};

    void SetUp() override { m_helper.isDefault = false; }

    /// What the user does in the open dialog; returns once it is closed.
    void Use(const std::function<void(QDialog&)>& user, QWidget* parent = nullptr) {
        UseDialog([&] { ShowModal(m_form, parent); }, user);
        EXPECT_FALSE(m_form.Form.Visible());
    }
};

TEST_F(DefBrowserDialogTest, ShowsTheFormsTextsUnderTheControlsNames) {
    const DefBrowserDialog dialog(m_form);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("TessaView"));
    const auto* label1 = dialog.findChild<QLabel*>(QStringLiteral("Label1"));
    const auto* label2 = dialog.findChild<QLabel*>(QStringLiteral("Label2"));
    const auto* check = dialog.findChild<QCheckBox*>(QStringLiteral("Check1"));
    ASSERT_TRUE(label1 && label2 && check);
    EXPECT_EQ(label1->text(), QStringLiteral("TessaView is not currently your default browser."));
    EXPECT_EQ(label2->text(), QStringLiteral("Would you like to make it your default browser?"));
    EXPECT_EQ(check->text(), QStringLiteral("&Always perform this check when starting TessaView."));
    EXPECT_EQ(check->accessibleName(), QStringLiteral("Always perform this check when starting TessaView."));
    EXPECT_TRUE(check->isChecked());
}

TEST_F(DefBrowserDialogTest, EnterIsYes) {
    Use([](QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); });
    EXPECT_EQ(m_helper.calls, std::vector<std::string>{"make TessaView3 /programs/tessaview"});
}

TEST_F(DefBrowserDialogTest, EscapeAndTheCloseButtonMeanNo) {
    Use([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    Use([](QDialog& dialog) { dialog.close(); });
    EXPECT_TRUE(m_helper.calls.empty());
    EXPECT_TRUE(m_settings.written.empty());
}

TEST_F(DefBrowserDialogTest, TheKeyboardReachesBoxAndButtons) {
    Use([this](QDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_A, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !m_form.Check1.Ticked(); }));
        QTest::keyClick(&dialog, Qt::Key_N, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.isHidden(); }));
    });
    EXPECT_TRUE(m_helper.calls.empty());
    EXPECT_EQ(m_settings.Stored(u"AskDefaultBrowser"), u"false");
}

TEST_F(DefBrowserDialogTest, SurvivesTheWindowItStandsAbove) {
    auto* splash = new QWidget;
    QTimer::singleShot(0, [&] { splash->deleteLater(); });
    ShowModal(m_form, splash);
    EXPECT_FALSE(m_form.Form.Visible());
}

} // namespace

} // namespace tessa::qt
