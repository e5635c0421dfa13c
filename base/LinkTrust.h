#pragma once
#include "base/Text.h"

namespace tessa {

/// How far an address that was not typed is trusted.
enum class LinkTrust {
    Open,
    Ask,  ///< it leads to this computer, or to another program, and anybody may have written it
    Never ///< it is a script, or leads into the engine; for another program, it is nobody's choice
};

/// Where an address comes from that was not typed.
enum class LinkSource {
    Group,    ///< a line of a TessaGroup, which anybody may have sent
    Favorite, ///< one that the user has chosen
    Folder,   ///< one of the Favorites of a folder, which are opened together
    Session,  ///< what was open in the program before
    HandOver, ///< what the program was started with
};

/// Looks at an address as the engine reads it. Surrounding blanks and control characters do not hide a scheme, nor do
/// tabs and line ends anywhere. A text without a scheme is a host or words, and leads to no file. A path that does not
/// begin at the root leads nowhere. What only looks like a scheme, in letters that none has, is not trusted.
[[nodiscard]] LinkTrust TrustOf(TextView address, LinkSource source);

} // namespace tessa
