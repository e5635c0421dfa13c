#include "base/os/ProcText.h"

#include <algorithm>
#include <charconv>

namespace tessa {

namespace {

std::vector<std::string_view> PartsBetween(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t from = text.find_first_not_of(separators);
        if (from == std::string_view::npos) return parts;
        const std::size_t to = std::min(text.find_first_of(separators, from), text.size());
        parts.push_back(text.substr(from, to - from));
        text.remove_prefix(to);
    }
}

} // namespace

namespace ProcText {

std::vector<std::string_view> Fields(std::string_view text) { return PartsBetween(text, " \t\n"); }

std::vector<std::string_view> Lines(std::string_view text) { return PartsBetween(text, "\n"); }

std::optional<std::int64_t> Number(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size() && number >= 0;
    return whole ? std::optional(number) : std::nullopt;
}

std::optional<std::int64_t> NumberAt(std::string_view text, std::string_view name) {
    for (const std::string_view line : Lines(text)) {
        const auto fields = Fields(line);
        if (fields.size() >= 2 && fields[0] == name) return Number(fields[1]);
    }
    return std::nullopt;
}

} // namespace ProcText

} // namespace tessa
