#pragma once
#include "platform/UserInput.h"
#include "qt/bar/MiddleClick.h"

namespace tessa::qt {

/// Keys and clipboard of the desktop. A middle click on a menu's entry means the same as Shift.
class DesktopInput final : public UserInput {
public:
    [[nodiscard]] bool ShiftHeld() const override;
    void Copy(TextView text) override;

private:
    MiddleClick m_middleClick;
};

} // namespace tessa::qt
