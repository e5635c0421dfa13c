#pragma once
#include "common/Text.h"

/// How far the address of a shortcut, which anybody may have written, is trusted.
enum class LinkTrust {
    Open,
    Ask,  ///< it leads to a file of this computer, or into the program itself
    Never ///< it is a script, which would run in the page that is shown
};

/// Looks at an address as the engine reads it: blanks and control characters at its beginning, and tabs and line ends
/// anywhere, do not hide a scheme.
[[nodiscard]] LinkTrust TrustOf(TextView address);
