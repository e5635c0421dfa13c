#pragma once
#include "base/Text.h"

/// Addresses that lead nowhere, whatever is installed: the engine drops them without a word.
namespace UnshownAddresses {

/// Why nothing can show the address, a sentence for the user; empty for what the engine or another program may take.
[[nodiscard]] Text WhyNot(TextView address);

} // namespace UnshownAddresses
