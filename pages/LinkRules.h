#pragma once
#include "base/Text.h"

/// Whether the user may open, from the menu of a page, an address that the page names: nothing of this computer from
/// a page of the web, nothing of the program's own, no script.
[[nodiscard]] bool MayOpenFromPage(TextView page, TextView address);

/// Whether something can be fetched from the address and saved.
[[nodiscard]] bool MaySave(TextView address);
