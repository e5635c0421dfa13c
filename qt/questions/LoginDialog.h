#pragma once
#include "qt/page/DialogCover.h"

#include <QString>

class QLineEdit;

namespace tessa::qt {

/// Who asks for a name and a password.
struct LoginQuestion {
    QString host;           ///< with its port when that is not the usual one
    QString realm;          ///< what the host says about itself; not to be trusted
    bool proxy = false;     ///< the host is a proxy, which stands between us and every page
    bool encrypted = false; ///< what is sent cannot be read on the way
    bool wrong = false;     ///< the last answer was not accepted
};

/// The dialog of a tab in which a host asks for name and password.
class LoginDialog final : public DialogCover {
    Q_OBJECT

public:
    explicit LoginDialog(const LoginQuestion& question);

    [[nodiscard]] QString User() const;
    [[nodiscard]] QString Password() const;

private:
    QLineEdit* m_user;
    QLineEdit* m_password;
};

} // namespace tessa::qt
