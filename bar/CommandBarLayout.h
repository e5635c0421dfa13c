#pragma once
#include "bar/CommandBar.h"

#include <string>
#include <string_view>

namespace tessa {

/// The layout of the command bar as the bytes of a file. It holds the look of the toolbars and the widths of the boxes.
/// For each band it holds kind, caption, visibility, docking and tools. INI text; a band is a section of its own, so
/// that damage to one costs no other. The names of all tools of the day are written too. So a later version can tell a
/// removed tool from a new one. Of the keys only those are written that the user has chosen.
namespace CommandBarLayout {

[[nodiscard]] std::string Save(const CommandBar& bar);

/// Arranges a bar that is as designed. Any bytes will do. A band whose section is missing or does not parse stays as
/// designed. Unknown tools are skipped, and a tool that is newer than the file stands on its designed band.
void Load(CommandBar& bar, std::string_view bytes);

/// The name of the `number`th toolbar that a user makes.
[[nodiscard]] Text UserBandName(std::int32_t number);

} // namespace CommandBarLayout

} // namespace tessa
