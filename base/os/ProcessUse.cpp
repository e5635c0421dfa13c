#include "base/os/ProcessUse.h"

#include "base/os/ProcText.h"

namespace tessa {

std::optional<std::int64_t> ProcessReader::OwnPages(std::string_view statm) {
    // Size, resident, shared, ...
    const auto fields = ProcText::Fields(statm);
    if (fields.size() < 3) return std::nullopt;
    const auto resident = ProcText::Number(fields[1]), shared = ProcText::Number(fields[2]);
    if (!resident || !shared || *shared > *resident) return std::nullopt;
    return *resident - *shared;
}

std::optional<std::int64_t> ProcessReader::Ticks(std::string_view stat) {
    // The name of the program stands in brackets and may hold blanks and brackets itself.
    const std::size_t end = stat.rfind(')');
    if (end == std::string_view::npos) return std::nullopt;
    const auto fields = ProcText::Fields(stat.substr(end + 1));
    constexpr std::size_t kState = 0, kUser = 11, kSystem = 12;
    if (fields.size() <= kSystem || fields[kState] == "Z" || fields[kState] == "X") return std::nullopt;
    const auto user = ProcText::Number(fields[kUser]), system = ProcText::Number(fields[kSystem]);
    return user && system ? std::optional(*user + *system) : std::nullopt;
}

std::optional<ProcessUse> ProcessReader::Read(std::int64_t process) const {
    const auto text = [folder = m_folder + "/" + std::to_string(process)](const char* name) {
        return ProcText::ReadFile(folder + "/" + name);
    };
    if (process <= 0) return std::nullopt;
    const auto pages = OwnPages(text("statm"));
    const auto ticks = Ticks(text("stat"));
    if (!pages || !ticks) return std::nullopt;
    return ProcessUse{*pages * m_units.PageBytes, std::chrono::milliseconds(*ticks * 1000 / m_units.TicksPerSecond)};
}

} // namespace tessa
