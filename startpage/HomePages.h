#pragma once
#include "forms/TabStrip.h"
#include "tabs/ViewArray.h"

namespace tessa {

/// The tabs that show the home page.
namespace HomePages {

/// Whether every home page is as the folders are now; `Later` when one has to be seen to again.
enum class Shown { Now, Later };

/// Makes the home pages anew that are awake. One that its user has typed into stays as it is. One that sleeps is made
/// anew when it wakes.
Shown Refresh(const TabStrip& pcPage, ViewArray& Browser);

} // namespace HomePages

} // namespace tessa
