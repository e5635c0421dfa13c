#pragma once
#include "base/Text.h"

#include <functional>
#include <vector>

namespace tessa {

/// Something that the user has decided for a site, and can take back.
struct SiteChoice {
    Text Words; ///< as in "https://a.example may use your camera"
    /// The site has to ask again from now on.
    std::function<void()> Revoke;
};

/// Everything that the user has decided for sites. Both may be empty, for nothing.
struct SiteChoices {
    /// In the order to be shown.
    std::function<std::vector<SiteChoice>()> All;
    std::function<void()> RevokeAll;
};

} // namespace tessa
