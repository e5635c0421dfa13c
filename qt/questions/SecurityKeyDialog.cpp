#include "qt/questions/SecurityKeyDialog.h"

#include "base/PlainText.h"
#include "qt/base/Strings.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace tessa::qt {

using EngineVersions::KeyStep;

namespace {
constexpr std::size_t kLongestAccount = 120;
constexpr int kMostAccountsShown = 6;
constexpr int kAccountPadding = 6;
const QString kCancelWord = QStringLiteral("Cancel");
} // namespace

SecurityKeyDialog::SecurityKeyDialog(const EngineVersions::SecurityKeyState& state) {
    setObjectName(QStringLiteral("securityKeyDialog"));
    switch (state.Step) {
    case KeyStep::None:
        break;
    case KeyStep::ChooseAccount:
        AskForAccount(state);
        break;
    case KeyStep::EnterPin:
    case KeyStep::SetPin:
        AskForPin(state);
        break;
    case KeyStep::Touch:
        SayToTouch(state);
        break;
    case KeyStep::Failed:
        SayWhatFailed(state);
        break;
    }
}

// What an account is called is other people's text. The row tells which it is: two may be called the same.
void SecurityKeyDialog::AskForAccount(const EngineVersions::SecurityKeyState& state) {
    AddHeading(QStringLiteral("Which account for %1?").arg(state.Site));
    m_accounts = new QListWidget(this);
    m_accounts->setObjectName(QStringLiteral("lstAccounts"));
    m_accounts->setAccessibleName(QStringLiteral("Accounts"));
    // A name's end tells as much as its beginning, and a scroll bar would hide a row.
    m_accounts->setTextElideMode(Qt::ElideMiddle);
    m_accounts->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const QSize size(0, m_accounts->fontMetrics().height() + kAccountPadding);
    for (const QString& account : state.Accounts) {
        auto* row = new QListWidgetItem(ToQt(PlainLine(FromQt(account), kLongestAccount)), m_accounts);
        row->setData(Qt::UserRole, account);
        row->setToolTip(row->text());
        row->setSizeHint(size);
    }
    m_accounts->setCurrentRow(0);
    const int rows = std::clamp(m_accounts->count(), 1, kMostAccountsShown);
    m_accounts->setFixedHeight(rows * m_accounts->sizeHintForRow(0) + 2 * m_accounts->frameWidth());
    Column()->addWidget(m_accounts);
    setFocusProxy(m_accounts);
    AddButtons(QStringLiteral("&Log In"), kCancelWord);
}

void SecurityKeyDialog::AskForPin(const EngineVersions::SecurityKeyState& state) {
    const bool isNew = state.Step == KeyStep::SetPin;
    AddHeading(isNew ? QStringLiteral("Your security key needs a PIN")
                     : QStringLiteral("Enter the PIN of your security key"));
    AddWords(isNew ? QStringLiteral("%1 wants the key to be protected. The PIN needs %2 characters at least.")
                         .arg(state.Site)
                         .arg(state.ShortestPin)
                   : QStringLiteral("%1 asks for the key. The PIN itself stays with the key.").arg(state.Site),
             "lblAsker");
    if (!state.Trouble.isEmpty()) AddWords(state.Trouble, "lblTrouble");
    AddPinBox(state);
    AddButtons(QStringLiteral("&Continue"), kCancelWord);
}

void SecurityKeyDialog::AddPinBox(const EngineVersions::SecurityKeyState& state) {
    m_pin = new QLineEdit(this);
    m_pin->setObjectName(QStringLiteral("txtPin"));
    m_pin->setAccessibleName(QStringLiteral("PIN"));
    // A new PIN is entered once: a slip that nobody sees would lock the key.
    if (state.Step == KeyStep::EnterPin) m_pin->setEchoMode(QLineEdit::Password);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("&PIN:"), m_pin);
    Column()->addLayout(form);
    setFocusProxy(m_pin);
}

void SecurityKeyDialog::SayToTouch(const EngineVersions::SecurityKeyState& state) {
    AddHeading(QStringLiteral("Touch your security key"));
    AddWords(QStringLiteral("%1 waits for it.").arg(state.Site), "lblAsker");
    AddButtons(kCancelWord, {});
}

void SecurityKeyDialog::SayWhatFailed(const EngineVersions::SecurityKeyState& state) {
    AddHeading(QStringLiteral("The security key was not used for %1").arg(state.Site));
    if (!state.Trouble.isEmpty()) AddWords(state.Trouble, "lblTrouble");
    AddButtons(QStringLiteral("Close"), {});
}

QString SecurityKeyDialog::Entered() const {
    if (m_pin) return m_pin->text();
    const auto* chosen = m_accounts ? m_accounts->currentItem() : nullptr;
    return chosen ? chosen->data(Qt::UserRole).toString() : QString();
}

} // namespace tessa::qt
