#pragma once
#include "common/Tool.h"
#include "common/platform/BrowserView.h"

/// What stands in the address box before the address: how far the page can be trusted to come from there.
namespace AddressSigns {

/// The picture and what it means; of a page that comes from nowhere none.
[[nodiscard]] BoxSign Of(PageSecurity security);

} // namespace AddressSigns
