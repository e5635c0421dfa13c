#pragma once
#include "base/Text.h"

namespace tessa {

/// The user's keyboard and clipboard. Owned by the program's entry.
class UserInput {
public:
    virtual ~UserInput() = default;

    /// Whether the Shift key is held down now, or the click that runs means the same.
    [[nodiscard]] virtual bool ShiftHeld() const = 0;
    /// Puts a text on the clipboard.
    virtual void Copy(TextView text) = 0;
};

} // namespace tessa
