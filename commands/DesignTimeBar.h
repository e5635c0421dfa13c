#pragma once
#include "bar/CommandBar.h"

namespace tessa {

/// The command bar as it is designed: every tool, band and order, which the user may then arrange anew.
namespace DesignTimeBar {

/// Fills an empty bar.
void Make(CommandBar& bar);
/// Gives one band, which may be missing, its designed tools, caption and place. False for a name that is no band of
/// the design.
bool ResetBand(CommandBar& bar, TextView name);
/// Gives the boxes their designed widths.
void ResetWidths(CommandBar& bar);
[[nodiscard]] bool IsDesigned(TextView band);

} // namespace DesignTimeBar

} // namespace tessa
