#include "pages/ProcessUse.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

std::vector<std::string_view> Fields(std::string_view text) {
    std::vector<std::string_view> fields;
    while (true) {
        const std::size_t from = text.find_first_not_of(" \n");
        if (from == std::string_view::npos) return fields;
        const std::size_t to = std::min(text.find_first_of(" \n", from), text.size());
        fields.push_back(text.substr(from, to - from));
        text.remove_prefix(to);
    }
}

std::optional<std::int64_t> Number(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size() && number >= 0;
    return whole ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<std::int64_t> ProcessReader::OwnPages(std::string_view statm) {
    // Size, resident, shared, ...
    const auto fields = Fields(statm);
    if (fields.size() < 3) return std::nullopt;
    const auto resident = Number(fields[1]), shared = Number(fields[2]);
    if (!resident || !shared || *shared > *resident) return std::nullopt;
    return *resident - *shared;
}

std::optional<std::int64_t> ProcessReader::Ticks(std::string_view stat) {
    // The name of the program stands in brackets and may hold blanks and brackets itself.
    const std::size_t end = stat.rfind(')');
    if (end == std::string_view::npos) return std::nullopt;
    const auto fields = Fields(stat.substr(end + 1));
    constexpr std::size_t kState = 0, kUser = 11, kSystem = 12;
    if (fields.size() <= kSystem || fields[kState] == "Z" || fields[kState] == "X") return std::nullopt;
    const auto user = Number(fields[kUser]), system = Number(fields[kSystem]);
    return user && system ? std::optional(*user + *system) : std::nullopt;
}

std::optional<ProcessUse> ProcessReader::Read(std::int64_t process) const {
    const auto text = [folder = m_folder + "/" + std::to_string(process)](const char* name) {
        std::ifstream file(folder + "/" + name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    if (process <= 0) return std::nullopt;
    const auto pages = OwnPages(text("statm"));
    const auto ticks = Ticks(text("stat"));
    if (!pages || !ticks) return std::nullopt;
    return ProcessUse{*pages * m_units.PageBytes, std::chrono::milliseconds(*ticks * 1000 / m_units.TicksPerSecond)};
}
