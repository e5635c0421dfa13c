#pragma once
#include "base/Text.h"

namespace tessa {

/// Addresses that lead nowhere, whatever is installed: the engine drops them without a word.
namespace UnshownAddresses {

/// A sentence for the user that says why nothing can show the address. Empty for what the engine or another program may
/// take.
[[nodiscard]] Text WhyNot(TextView address);

} // namespace UnshownAddresses

} // namespace tessa
