#pragma once
#include "base/Text.h"

#include <cstdint>

namespace tessa {

/// What of a passage counts when it is asked whether it is new. Clocks, dates, how long ago something was, and how
/// often something was seen or said change by themselves.
namespace NewsKey {

/// The passage's words in small letters without those; empty when nothing is left that says anything.
[[nodiscard]] Text MaskedOf(TextView passage);
/// A number for the masked passage, the same at each run; 0 for an empty one.
[[nodiscard]] std::uint64_t Of(TextView passage);
/// Whether it says itself that it is an advertisement.
[[nodiscard]] bool SaysAdvertisement(TextView passage);

} // namespace NewsKey

} // namespace tessa
