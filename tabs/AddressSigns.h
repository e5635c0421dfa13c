#pragma once
#include "bar/Tool.h"
#include "platform/BrowserView.h"

namespace tessa {

/// What stands in the address box before the address: how far the page can be trusted to come from there.
namespace AddressSigns {

/// The sign of the page shown, which has that address. For a page that comes from nowhere it has no picture.
[[nodiscard]] BoxSign Of(PageSecurity security, TextView address);
/// The sign of an address that a page is about to come from, while `shown` is still there. Empty for none.
[[nodiscard]] BoxSign Waiting(TextView address, TextView shown);

} // namespace AddressSigns

} // namespace tessa
