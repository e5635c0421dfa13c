#pragma once
#include "commands/effects/CommandContext.h"

namespace tessa {

/// Commands about the lists of the address box and the search box.
namespace HistoryCommands {

/// Each empties its list, says so and offers to bring the entries back.
void ClearAddresses(CommandContext& context);
void ClearSearches(CommandContext& context);

} // namespace HistoryCommands

} // namespace tessa
