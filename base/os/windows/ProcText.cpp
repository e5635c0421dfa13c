#include "base/os/ProcText.h"

#include "base/os/AtomicFile.h"

namespace tessa {

// Only tests have such files here.
std::string ProcText::ReadFile(const std::string& path) { return ReadWholeFile(path).value_or(std::string()); }

} // namespace tessa
