#include "qt/questions/LoginDialog.h"

#include "base/PlainText.h"
#include "qt/base/Strings.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {
constexpr std::size_t kLongestRealm = 160;
} // namespace

LoginDialog::LoginDialog(const LoginQuestion& question) : m_user(new QLineEdit(this)), m_password(new QLineEdit(this)) {
    setObjectName(QStringLiteral("loginDialog"));
    AddHeading(question.proxy ? QStringLiteral("The proxy %1 asks for a name and a password").arg(question.host)
                              : QStringLiteral("%1 asks for a name and a password").arg(question.host));
    if (question.wrong) AddWords(QStringLiteral("The name or the password was not accepted."), "lblWrong");
    if (const Text realm = PlainLine(FromQt(question.realm), kLongestRealm); !realm.empty())
        AddWords(QStringLiteral("It calls itself \u201C%1\u201D.").arg(ToQt(realm)), "lblRealm");
    if (!question.encrypted)
        AddWords(QStringLiteral("The connection is not encrypted: others on the way can read what you enter."),
                 "lblNotEncrypted");
    m_user->setObjectName(QStringLiteral("txtUser"));
    m_user->setAccessibleName(QStringLiteral("Name"));
    m_password->setObjectName(QStringLiteral("txtPassword"));
    m_password->setAccessibleName(QStringLiteral("Password"));
    m_password->setEchoMode(QLineEdit::Password);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("&Name:"), m_user);
    form->addRow(QStringLiteral("&Password:"), m_password);
    Column()->addLayout(form);
    setFocusProxy(m_user);
    AddButtons(QStringLiteral("&Log In"), QStringLiteral("Cancel"));
}

QString LoginDialog::User() const { return m_user->text(); }

QString LoginDialog::Password() const { return m_password->text(); }

} // namespace tessa::qt
