#pragma once
#include "bar/CommandBar.h"

/// Tells the bands of one side, not the floating one, where they stand now. `rows` are those that can be seen, from the
/// window's edge and in their order; the hidden bands of that side keep their place beside the ones that they stood
/// with.
void AssignDockRows(const CommandBar& bar, DockSide side, std::vector<std::vector<Band*>> rows);
