#include "common/ResumeNext.h"

#include <cstdio>
#include <cstdlib>

namespace {
std::size_t skippedSteps = 0;
}

void ResumeNext(Outcome step) {
    if (step == Outcome::Failed) ++skippedSteps;
}

std::size_t SkippedSteps() { return skippedSteps; }

void Must(bool condition) {
    if (condition) return;
    std::fputs("tessaview: internal error\n", stderr);
    std::abort();
}
