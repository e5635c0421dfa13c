// Tests: Covers, EngineVersions, SecurityKeyDialog
#include "qt/questions/SecurityKeys.h"

#include "qt/questions/Covers.h"
#include "qt/questions/SecurityKeyDialog.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <string>

namespace tessa::qt {

namespace {

using EngineVersions::KeyStep;

/// A page that uses a key, and its user; what the key is told comes as "account ann", "pin 1234", "cancel".
class SecurityKeysTest : public testing::Test {
protected:
    SecurityKeysTest() {
        area.resize(700, 400);
        covers.Lay(area.rect());
        covers.SetShown(true);
        area.show();
        area.activateWindow();
        state.Site = QStringLiteral("example.org");
    }
    void Begin(KeyStep step) {
        state.Step = step;
        const auto tell = [this](const char* what) {
            return [this, what](const QString& text) { told += what + text.toStdString() + ";"; };
        };
        keys.Begin({[this] { return state; }, tell("account "), tell("pin "), [this] { told += "cancel;"; }});
    }
    void Become(KeyStep step) {
        state.Step = step;
        keys.Update();
    }
    /// The dialog that the user sees; nothing when there is none.
    SecurityKeyDialog* Dialog() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return area.findChild<SecurityKeyDialog*>();
    }
    template<typename Widget>
    Widget* Find(const char* name) {
        auto* dialog = Dialog();
        return dialog ? dialog->findChild<Widget*>(QLatin1String(name)) : nullptr;
    }
    std::string Words(const char* name) {
        auto* label = Find<QLabel>(name);
        return label ? label->text().toStdString() : std::string();
    }
    void Press(const char* button) { Find<QPushButton>(button)->click(); }

    QWidget area;
    Covers covers{&area};
    SecurityKeys keys{covers};
    EngineVersions::SecurityKeyState state;
    std::string told;
};

TEST_F(SecurityKeysTest, NothingIsAskedWhileTheEngineIsAtIt) {
    Begin(KeyStep::None);
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_EQ(told, "");
}

TEST_F(SecurityKeysTest, ThePinGoesToTheKeyAndIsNotShown) {
    Begin(KeyStep::EnterPin);
    EXPECT_EQ(Words("lblHeading"), "Enter the PIN of your security key");
    EXPECT_EQ(Words("lblTrouble"), "");
    EXPECT_EQ(Find<QLineEdit>("txtPin")->echoMode(), QLineEdit::Password);
    QTest::keyClicks(Find<QLineEdit>("txtPin"), QStringLiteral("1234"));
    Press("cmdOK");
    EXPECT_EQ(told, "pin 1234;");
    EXPECT_EQ(Dialog(), nullptr);
}

TEST_F(SecurityKeysTest, AWrongPinIsAskedForAgainWithTheReason) {
    Begin(KeyStep::EnterPin);
    state.Trouble = QStringLiteral("The PIN was wrong. Attempts left: 2.");
    Become(KeyStep::EnterPin);
    EXPECT_EQ(Words("lblTrouble"), "The PIN was wrong. Attempts left: 2.");
    EXPECT_EQ(Find<QLineEdit>("txtPin")->text(), QString());
    EXPECT_EQ(area.findChildren<SecurityKeyDialog*>().size(), 1);
}

TEST_F(SecurityKeysTest, ANewPinIsSeenAndItsLengthSaid) {
    state.ShortestPin = 4;
    Begin(KeyStep::SetPin);
    EXPECT_EQ(Find<QLineEdit>("txtPin")->echoMode(), QLineEdit::Normal);
    EXPECT_NE(Words("lblAsker").find("4 characters"), std::string::npos);
    QTest::keyClicks(Find<QLineEdit>("txtPin"), QStringLiteral("987654"));
    Press("cmdOK");
    EXPECT_EQ(told, "pin 987654;");
}

TEST_F(SecurityKeysTest, AnAccountIsChosenByItsOwnNameHoweverItIsShown) {
    state.Accounts = {QStringLiteral("ann"), QStringLiteral("bob\nbob")};
    Begin(KeyStep::ChooseAccount);
    auto* accounts = Find<QListWidget>("lstAccounts");
    ASSERT_EQ(accounts->count(), 2);
    EXPECT_FALSE(accounts->item(1)->text().contains(u'\n'));
    accounts->setCurrentRow(1);
    Press("cmdOK");
    EXPECT_EQ(told, "account bob\nbob;");
}

TEST_F(SecurityKeysTest, ALongAccountHidesNoOther) {
    state.Accounts = {QStringLiteral("ann"), QString(100, u'w'), QStringLiteral("cleo")};
    Begin(KeyStep::ChooseAccount);
    const auto* accounts = Find<QListWidget>("lstAccounts");
    ASSERT_TRUE(QTest::qWaitFor([&] { return accounts->isVisible() && accounts->viewport()->width() > 200; }));
    const QRect last = accounts->visualItemRect(accounts->item(2));
    EXPECT_TRUE(accounts->viewport()->rect().contains(last)) << "a scroll bar would";
    EXPECT_EQ(accounts->item(1)->toolTip(), QString(100, u'w'));
}

TEST_F(SecurityKeysTest, TheFirstAccountIsChosenWhenNothingElseIs) {
    state.Accounts = {QStringLiteral("ann"), QStringLiteral("bob")};
    Begin(KeyStep::ChooseAccount);
    Press("cmdOK");
    EXPECT_EQ(told, "account ann;");
}

TEST_F(SecurityKeysTest, CancelEndsEachStep) {
    for (const KeyStep step : {KeyStep::ChooseAccount, KeyStep::EnterPin, KeyStep::SetPin}) {
        Begin(step);
        told.clear();
        Press("cmdCancel");
        EXPECT_EQ(told, "cancel;");
        EXPECT_EQ(Dialog(), nullptr);
    }
}

TEST_F(SecurityKeysTest, TheUserIsToldToTouchTheKeyAndMayCancel) {
    Begin(KeyStep::Touch);
    EXPECT_EQ(Words("lblHeading"), "Touch your security key");
    EXPECT_EQ(Words("lblAsker"), "example.org waits for it.");
    Press("cmdOK");
    EXPECT_EQ(told, "cancel;");
}

TEST_F(SecurityKeysTest, AFailureIsSaidAndClosed) {
    state.Trouble = QStringLiteral("Nobody used a key in time.");
    Begin(KeyStep::Failed);
    EXPECT_EQ(Words("lblTrouble"), "Nobody used a key in time.");
    Press("cmdOK");
    EXPECT_EQ(told, "cancel;");
}

TEST_F(SecurityKeysTest, WhenItIsOverTheDialogGoes) {
    Begin(KeyStep::Touch);
    ASSERT_NE(Dialog(), nullptr);
    Become(KeyStep::None);
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_EQ(told, "");
}

TEST_F(SecurityKeysTest, ASecondUseEndsTheFirst) {
    Begin(KeyStep::Touch);
    Begin(KeyStep::EnterPin);
    EXPECT_EQ(told, "cancel;");
    EXPECT_EQ(area.findChildren<SecurityKeyDialog*>().size(), 2) << "the first is deleted later";
    EXPECT_EQ(Words("lblHeading"), "Enter the PIN of your security key");
}

} // namespace

} // namespace tessa::qt
