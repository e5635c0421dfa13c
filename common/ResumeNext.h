#pragma once
// How failure is written here: a step outside the core returns an Outcome, and the caller goes on with the next step.

#include <cstddef>

/// Whether a step outside the core succeeded.
enum class [[nodiscard]] Outcome{Done, Failed};

/// Goes on with the next statement whatever the step answered. A skipped step is counted, so that a test notices one
/// that it did not announce.
void ResumeNext(Outcome step);

/// How many steps were skipped since the program began.
[[nodiscard]] std::size_t SkippedSteps();

/// For our own mistakes: ends the program, in every build, when the condition does not hold.
void Must(bool condition);
