#pragma once
#include "base/ResumeNext.h"
#include "base/Text.h"

namespace tessa {

/// The desktop's choice of the program that opens web addresses. Owned by the program's entry.
class DefaultBrowser {
public:
    virtual ~DefaultBrowser() = default;
    /// Whether the program of that name and full path is the default browser. Also true when the desktop cannot make
    /// it one or does not say: then nobody need be asked. Holds the caller up for a moment at most.
    [[nodiscard]] virtual bool IsDefault(TextView name, TextView path) = 0;
    /// Whether `IsDefault` is true and known at once: the desktop need not be asked, which takes a moment.
    [[nodiscard]] virtual bool KnownDefault() = 0;
    /// Makes the program of that name and full path the default browser. Does not wait for the desktop to be done.
    virtual Outcome MakeDefault(TextView name, TextView path) = 0;
};

} // namespace tessa
