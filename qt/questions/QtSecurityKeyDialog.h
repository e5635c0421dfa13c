#pragma once
#include "qt/base/QtEngineVersions.h"
#include "qt/page/QtDialogCover.h"

class QLineEdit;
class QListWidget;

namespace tessa::qt {

/// The dialog of a tab for one step of the use of a security key.
class QtSecurityKeyDialog final : public QtDialogCover {
    Q_OBJECT

public:
    explicit QtSecurityKeyDialog(const QtEngineVersions::SecurityKeyState& state);

    /// The account that is chosen, or the PIN that was entered; empty in steps without either.
    [[nodiscard]] QString Entered() const;

private:
    void AskForAccount(const QtEngineVersions::SecurityKeyState& state);
    void AskForPin(const QtEngineVersions::SecurityKeyState& state);
    void SayToTouch(const QtEngineVersions::SecurityKeyState& state);
    void SayWhatFailed(const QtEngineVersions::SecurityKeyState& state);
    void AddPinBox(const QtEngineVersions::SecurityKeyState& state);

    QListWidget* m_accounts = nullptr;
    QLineEdit* m_pin = nullptr;
};

} // namespace tessa::qt
