#pragma once
#include "bar/CommandBar.h"

namespace tessa {

/// Tells the bands of one side, not the floating one, where they stand now. `rows` are the visible rows in their order
/// from the window's edge. The hidden bands of that side keep their place beside their old neighbours.
void AssignDockRows(const CommandBar& bar, DockSide side, std::vector<std::vector<Band*>> rows);

} // namespace tessa
