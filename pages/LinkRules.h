#pragma once
#include "base/Text.h"

namespace tessa {

/// Whether the user may open, from a page's menu, an address that the page names. Never a script or a page of the
/// program's own. From a page of the web, nothing of this computer.
[[nodiscard]] bool MayOpenFromPage(TextView page, TextView address);

/// Whether something can be fetched from the address and saved.
[[nodiscard]] bool MaySave(TextView address);

} // namespace tessa
