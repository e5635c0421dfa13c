#pragma once
#include "base/ResumeNext.h"
#include "base/Text.h"

namespace tessa {

/// The desktop's choice of the program that opens web addresses. Owned by the program's entry.
class DefaultBrowser {
public:
    virtual ~DefaultBrowser() = default;
    /// Whether the program of that name and full path is the default browser. True as well when the desktop cannot
    /// make it one or does not say, so that there is nothing to ask the user. Holds the caller up for a moment at most.
    [[nodiscard]] virtual bool IsDefault(TextView name, TextView path) = 0;
    /// Makes the program of that name and full path the default browser. Does not wait for the desktop to be done.
    virtual Outcome MakeDefault(TextView name, TextView path) = 0;
};

} // namespace tessa
