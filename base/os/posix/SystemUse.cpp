#include "base/os/IdleCores.h"
#include "base/os/MemoryFiles.h"
#include "base/os/ProcessUse.h"

#include <unistd.h>

namespace tessa {

std::optional<ProcessUse> SystemProcessUse(std::int64_t process) {
    static const ProcessReader kReader({::sysconf(_SC_PAGESIZE), ::sysconf(_SC_CLK_TCK)});
    return kReader.Read(process);
}

std::int64_t ThisProcess() { return ::getpid(); }

IdleCores::IdleCores() : IdleCores(::sysconf(_SC_CLK_TCK), "/proc/stat") {}

std::unique_ptr<MemoryReader> SystemMemory(const std::string& root) { return std::make_unique<MemoryFiles>(root); }

} // namespace tessa
