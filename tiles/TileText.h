#pragma once
#include "base/Text.h"
#include "tiles/TileLayout.h"

namespace tessa {

/// A layout as it is written down. "h(1 v(2 3))" is pane 1 at the left of a column with 2 above 3. A part that is not
/// of the usual weight has it behind a colon: "h(1:2000 2)". Behind a blank follow the words "full" and "linked".
[[nodiscard]] Text TileText(const TileLayout& layout);

/// Reads what `TileText` has written; nothing for anything else. Blanks may stand between all parts.
[[nodiscard]] std::optional<TileLayout> TileLayoutIn(TextView text);

/// Several of them, each with what `become` answers for its numbers, see `TileLayouts::Renumbered`. Texts that are no
/// layouts are left out, and so are those of less than two panes.
[[nodiscard]] std::vector<Text> TileTextsBecome(const std::vector<Text>& texts,
                                                const std::function<std::int32_t(std::int32_t)>& become);

} // namespace tessa
