#pragma once
#include "base/Text.h"

#include <vector>

namespace tessa {

/// Whether those windows are all that a page wanted, or the first of more.
enum class PopupsHeld { All, First };

/// What a bar says of windows that a page wants to open by itself. `asker` is who the page is. `places` has the host of
/// each window, empty where it has none.
[[nodiscard]] Text PopupWords(TextView asker, const std::vector<Text>& places, PopupsHeld held);

} // namespace tessa
