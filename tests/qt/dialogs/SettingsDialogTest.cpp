// Tests: Bind, FormRows
#include "qt/dialogs/SettingsDialog.h"

#include "qt/base/Bind.h"
#include "qt/base/Strings.h"
#include "tests/fakes/FakeSettings.h"
#include "tests/qt/dialogs/UseDialog.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class SettingsDialogTest : public testing::Test {
protected:
    FakeSettings m_settings;
    frmSettings m_form{m_settings};

    /// What the user does in the open dialog; returns once it is closed.
    void Use(const std::function<void(QDialog&)>& user) {
        UseDialog([&] { ShowModal(m_form, nullptr); }, user);
        EXPECT_FALSE(m_form.Form.Visible());
    }

    template<typename T>
    static T& Find(QDialog& dialog, const char* name) {
        auto* widget = dialog.findChild<T*>(QString::fromLatin1(name));
        if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }

    static void Press(QDialog& dialog, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* focus = dialog.focusWidget();
        QTest::keyClick(focus != nullptr ? focus : &dialog, key, modifiers);
    }
};

TEST_F(SettingsDialogTest, ShowsTheFormsTextsUnderTheControlsNames) {
    SettingsDialog dialog(m_form);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Settings"));
    EXPECT_EQ(Find<QTabWidget>(dialog, "TabStrip1").count(), 1);
    EXPECT_EQ(Find<QTabWidget>(dialog, "TabStrip1").tabText(0), QStringLiteral("&General"));
    const std::pair<const char*, const char*> boxes[] = {
        {"chkAllowMultipleInstances", "Allow multiple application instances"},
        {"chkTabsUp", "Align tabs up"},
        {"chkLimitTitleLength", "Limit Browser Tab Title Length"},
        {"chkCloseTessaGroups", "Close other tabs when opening TessaGroups"},
        {"chkOpenNew", "Open new tabs in foreground"},
        {"chkAskDefaultBrowser", "Ask to make TessaView the default browser"},
        {"chkRememberAndOpenLastSites", "Remember and open last sites"},
    };
    for (const auto& [name, caption] : boxes) {
        auto& box = Find<QCheckBox>(dialog, name);
        EXPECT_EQ(box.accessibleName().toStdString(), caption);
        EXPECT_EQ(box.text().remove(u'&').toStdString(), caption);
        EXPECT_EQ(box.text().count(u'&'), 1) << name;
    }
    EXPECT_EQ(Find<QLabel>(dialog, "Label1").text().remove(u'&'), QStringLiteral("Max characters to display"));
    EXPECT_EQ(Find<QLineEdit>(dialog, "Text1").accessibleName(), QStringLiteral("Max characters to display"));
    EXPECT_EQ(Find<QPushButton>(dialog, "cmdOK").text(), QStringLiteral("OK"));
    EXPECT_EQ(Find<QPushButton>(dialog, "cmdCancel").text(), QStringLiteral("Cancel"));
}

TEST_F(SettingsDialogTest, EveryAccessKeyIsThereOnce) {
    SettingsDialog dialog(m_form);
    QStringList keys;
    const auto add = [&](const QString& text) { keys << text.mid(text.indexOf(u'&') + 1, 1).toUpper(); };
    for (const auto* box : dialog.findChildren<QCheckBox*>()) add(box->text());
    add(Find<QLabel>(dialog, "Label1").text());
    add(Find<QTabWidget>(dialog, "TabStrip1").tabText(0));
    keys.sort();
    EXPECT_EQ(keys.join(u' '), QStringLiteral("C G K L M N R U X"));
}

TEST_F(SettingsDialogTest, EnterIsOkAndStoresWhatTheKeyboardChanged) {
    Use([](QDialog& dialog) {
        EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("chkAllowMultipleInstances"));
        Press(dialog, Qt::Key_Space);
        Press(dialog, Qt::Key_Tab);
        EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("chkTabsUp"));
        Press(dialog, Qt::Key_Space);
        QTest::keyClick(&dialog, Qt::Key_X, Qt::AltModifier);
        EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("Text1"));
        Press(dialog, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("2.5"));
        Press(dialog, Qt::Key_Return);
    });
    EXPECT_TRUE(m_form.Apply);
    EXPECT_EQ(m_settings.Stored(u"AllowMultipleInstances"), u"true");
    EXPECT_EQ(m_settings.Stored(u"TabsUp"), u"false");
    EXPECT_EQ(m_settings.Stored(u"TitleLengthLimit"), u"2");
}

TEST_F(SettingsDialogTest, EscapeCancels) {
    Use([](QDialog& dialog) {
        Press(dialog, Qt::Key_Space);
        Press(dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(m_form.Apply);
    EXPECT_TRUE(m_settings.written.empty());
}

TEST_F(SettingsDialogTest, ClosingTheWindowAndTheCancelButtonCancelToo) {
    Use([](QDialog& dialog) { dialog.close(); });
    EXPECT_FALSE(m_form.Apply);
    Use([](QDialog& dialog) { QTest::mouseClick(&Find<QPushButton>(dialog, "cmdCancel"), Qt::LeftButton); });
    EXPECT_FALSE(m_form.Apply);
    EXPECT_TRUE(m_settings.written.empty());
}

TEST_F(SettingsDialogTest, TabGoesThroughEveryControlInOrder) {
    QStringList order;
    Use([&](QDialog& dialog) {
        for (int i = 0; i < 11; ++i) {
            order << dialog.focusWidget()->objectName();
            Press(dialog, Qt::Key_Tab);
        }
        Press(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(order.mid(0, 10),
              (QStringList{QStringLiteral("chkAllowMultipleInstances"), QStringLiteral("chkTabsUp"),
                           QStringLiteral("chkLimitTitleLength"), QStringLiteral("Text1"),
                           QStringLiteral("chkCloseTessaGroups"), QStringLiteral("chkOpenNew"),
                           QStringLiteral("chkAskDefaultBrowser"), QStringLiteral("chkRememberAndOpenLastSites"),
                           QStringLiteral("cmdOK"), QStringLiteral("cmdCancel")}));
}

TEST_F(SettingsDialogTest, TextThatIsNoNumberShowsZeroAtOnce) {
    SettingsDialog dialog(m_form);
    auto& text = Find<QLineEdit>(dialog, "Text1");
    EXPECT_EQ(text.text(), QStringLiteral("20"));
    QTest::keyClick(&text, Qt::Key_Backspace);
    QTest::keyClick(&text, Qt::Key_Backspace);
    EXPECT_EQ(text.text(), QStringLiteral("0"));
    QTest::keyClicks(&text, QStringLiteral("abc"));
    EXPECT_EQ(text.text(), QStringLiteral("0"));
    EXPECT_EQ(m_form.Text1.Value(), u"0");
}

TEST_F(SettingsDialogTest, TheLimitBoxEnablesAndDisablesTheText) {
    SettingsDialog dialog(m_form);
    auto& box = Find<QCheckBox>(dialog, "chkLimitTitleLength");
    auto& text = Find<QLineEdit>(dialog, "Text1");
    box.click();
    EXPECT_FALSE(text.isEnabled());
    EXPECT_EQ(text.text(), QStringLiteral("0"));
    box.click();
    EXPECT_TRUE(text.isEnabled());
    EXPECT_EQ(text.text(), QStringLiteral("0"));
}

TEST_F(SettingsDialogTest, TheFormOutlivesItsDialog) {
    { const SettingsDialog dialog(m_form); }
    m_form.Text1.Value = u"7";
    m_form.chkTabsUp.Tick(false);
    m_form.cmdOK.Enabled = false;
    EXPECT_FALSE(m_form.Text1.Value.Mirror.HasListeners());
}

TEST(Bind, ShowsAGreyBoxUntilTheUserTicksIt) {
    CheckBox box(u"A");
    QCheckBox widget;
    Bind(box, widget, QStringLiteral("box"));
    box.Value = CheckState::Grey;
    EXPECT_EQ(widget.checkState(), Qt::PartiallyChecked);
    EXPECT_EQ(box.Value(), CheckState::Grey);
    for (int i = 0; i < 4; ++i) {
        widget.click();
        EXPECT_NE(box.Value(), CheckState::Grey);
        EXPECT_EQ(box.Ticked(), widget.isChecked());
    }
}

TEST(Bind, ShowsALabelAsPlainTextAndFollowsIt) {
    Label label(u"<b>a</b>");
    QLabel widget;
    Bind(label, widget, QStringLiteral("label"));
    EXPECT_EQ(widget.textFormat(), Qt::PlainText);
    label.Caption = u"R&D";
    EXPECT_EQ(widget.text(), QStringLiteral("R&D"));
    EXPECT_EQ(widget.accessibleName(), QStringLiteral("R&D"));
}

TEST(Bind, AButtonFollowsEnabledAndVisibleWithoutComingUpAsAWindow) {
    Button button(u"&Go && Come");
    int clicks = 0;
    button.Click.ConnectForLife([&] { ++clicks; });
    QPushButton widget;
    Bind(button, widget, QStringLiteral("cmdGo"));
    EXPECT_FALSE(widget.isVisible());
    EXPECT_EQ(widget.accessibleName(), QStringLiteral("Go & Come"));
    button.Visible = false;
    EXPECT_TRUE(widget.testAttribute(Qt::WA_WState_ExplicitShowHide));
    button.Enabled = false;
    widget.click();
    button.Enabled = true;
    widget.click();
    EXPECT_EQ(clicks, 1);
}

TEST(Bind, ALongTextIsNotCut) {
    TextBox box;
    QLineEdit widget;
    Bind(box, widget, QStringLiteral("box"), QStringLiteral("Text"));
    box.Value = Text(40000, u'a');
    EXPECT_EQ(box.Value().size(), 40000u);
    EXPECT_EQ(widget.text().size(), 40000);
}

TEST(Bind, AccessKeysPreferTheBeginningOfAWord) {
    EXPECT_EQ(WithAccessKey(QStringLiteral("Align tabs up"), u'U'), QStringLiteral("Align tabs &up"));
    EXPECT_EQ(WithAccessKey(QStringLiteral("Max"), u'X'), QStringLiteral("Ma&x"));
    EXPECT_EQ(WithAccessKey(QStringLiteral("Open new"), u'N'), QStringLiteral("Open &new"));
    EXPECT_EQ(WithAccessKey(QStringLiteral("R&D"), u'D'), QStringLiteral("R&&&D"));
    EXPECT_EQ(WithAccessKey(QStringLiteral("A"), u'Z'), QStringLiteral("A"));
}

} // namespace

} // namespace tessa::qt
