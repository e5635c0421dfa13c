#pragma once
#include "qt/base/EngineVersions.h"
#include "qt/page/DialogCover.h"

class QLineEdit;
class QListWidget;

namespace tessa::qt {

/// The dialog of a tab for one step of the use of a security key.
class SecurityKeyDialog final : public DialogCover {
    Q_OBJECT

public:
    explicit SecurityKeyDialog(const EngineVersions::SecurityKeyState& state);

    /// The account that is chosen, or the PIN that was entered; empty in steps without either.
    [[nodiscard]] QString Entered() const;

private:
    void AskForAccount(const EngineVersions::SecurityKeyState& state);
    void AskForPin(const EngineVersions::SecurityKeyState& state);
    void SayToTouch(const EngineVersions::SecurityKeyState& state);
    void SayWhatFailed(const EngineVersions::SecurityKeyState& state);
    void AddPinBox(const EngineVersions::SecurityKeyState& state);

    QListWidget* m_accounts = nullptr;
    QLineEdit* m_pin = nullptr;
};

} // namespace tessa::qt
