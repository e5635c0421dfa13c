#pragma once
#include "forms/TabStrip.h"

#include <cstdint>

namespace tessa {

/// The key of the tab of view `Index`.
[[nodiscard]] inline Text KeyOfTab(std::int32_t Index) { return u"Tab" + Decimal(Index); }

/// The tab of view `Index`, or nothing.
[[nodiscard]] inline Tab* TabOfView(const TabStrip& pcPage, std::int32_t Index) { return pcPage.Find(KeyOfTab(Index)); }

} // namespace tessa
