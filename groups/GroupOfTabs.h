#pragma once
#include "tabs/TabGroups.h"

namespace tessa {

/// Has open tabs be the group of a file that was written with their addresses. They come together where the first of
/// them stands in the strip, in the order in which the file opens them. A pinned tab stays as it is. Where they hold
/// all tabs of a group that was opened from that file, it is that group still.
void MakeGroupOfTabs(TabGroups& groups, TabStrip& pcPage, const Text& name, GroupSource file,
                     const std::vector<GroupTab>& saved);

} // namespace tessa
