#pragma once
#include "commands/effects/CommandContext.h"

namespace tessa {

/// What the menu of a page lists.
namespace PageMenuEntries {

/// The entries for the page of a view, in their order.
[[nodiscard]] std::vector<BandEntry> For(const CommandContext& context, const PageContext& page, TextView address);

} // namespace PageMenuEntries

} // namespace tessa
