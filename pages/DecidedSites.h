#pragma once
#include "pages/ExternalSchemes.h"
#include "pages/SitePermissions.h"
#include "settings/SiteChoice.h"

/// What was decided for sites, in words and to be taken back: what they may do for good, and in this run about other
/// programs. Both outlive what is returned. Refused certificates are not among it: which of them the user goes on with
/// the engine keeps to itself until the run ends.
[[nodiscard]] SiteChoices DecidedSites(SitePermissions& permissions, ExternalSchemes& programs);
