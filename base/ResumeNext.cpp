#include "base/ResumeNext.h"

#include "base/os/Log.h"

#include <cstdio>
#include <cstdlib>

namespace tessa {

namespace {
std::size_t skippedSteps = 0;
}

void ResumeNext(Outcome step, const std::source_location& where) {
    if (step == Outcome::Done) return;
    ++skippedSteps;
    Log::NoteFailedStep(where);
}

std::size_t SkippedSteps() { return skippedSteps; }

void Must(bool condition, const std::source_location& where) {
    if (condition) return;
    std::fprintf(stderr, "tessaview: internal error at %s\n", Log::Place(where).c_str());
    Log::NoteMistake(where);
    std::abort();
}

} // namespace tessa
