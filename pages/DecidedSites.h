#pragma once
#include "pages/ExternalSchemes.h"
#include "pages/SitePermissions.h"
#include "settings/SiteChoice.h"

namespace tessa {

/// What was decided for sites, in words, and how to take it back. That is their lasting permissions, and this run's
/// answers about other programs. Both outlive what is returned. Refused certificates are not part of it. The engine
/// keeps to itself until the run ends which of them the user has accepted.
[[nodiscard]] SiteChoices DecidedSites(SitePermissions& permissions, ExternalSchemes& programs);

} // namespace tessa
