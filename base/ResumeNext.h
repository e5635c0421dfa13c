#pragma once
// How failure is written here. A step outside the core returns an Outcome, and the caller goes on with the next step.

#include "base/Outcome.h"

#include <cstddef>
#include <source_location>

namespace tessa {

/// Goes on with the next statement whatever the step answered. A skipped step is counted, so that a test notices one
/// that it did not announce. The log notes its place.
void ResumeNext(Outcome step, const std::source_location& where = std::source_location::current());

/// How many steps were skipped since the program began.
[[nodiscard]] std::size_t SkippedSteps();

/// For our own mistakes: ends the program in every build when the condition does not hold. The standard error and the
/// log say in which function on which line that is.
void Must(bool condition, const std::source_location& where = std::source_location::current());

} // namespace tessa
