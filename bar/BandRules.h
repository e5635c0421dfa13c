#pragma once
#include "bar/CommandBar.h"

namespace tessa {

/// What a band may list, whoever arranges it: the user in the dialog, or a layout file.
namespace BandRules {

/// Labels and boxes stand on toolbars only, and no menu opens out of itself, however deep.
[[nodiscard]] bool MayList(const CommandBar& bar, const Band& band, const Tool& tool);

/// Takes off all bands what must not be there. That is a tool that a band may not list or lists already, and a box of
/// an earlier toolbar.
void Mend(CommandBar& bar);

/// A caption fit for a toolbar: without control characters and blanks at its ends, of at most 60 units.
[[nodiscard]] Text CleanCaption(TextView caption);

} // namespace BandRules

} // namespace tessa
