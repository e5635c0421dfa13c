#include "downloads/DownloadList.h"

#include <array>
#include <charconv>

namespace {

/// A line a download: state, problem, bytes received, bytes in all, path, address, when it was done, separated by tabs.
/// Tabs and ends of lines do not occur in paths that we make, and not in addresses. Where nobody knows when it was
/// done, the last one is not there.
constexpr std::size_t kFields = 7;
constexpr std::int64_t kProblems = static_cast<std::int64_t>(DownloadProblem::Other) + 1;
constexpr std::int64_t kStates = static_cast<std::int64_t>(DownloadState::Cancelled) + 1;

std::optional<std::int64_t> NumberField(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<std::array<std::string_view, kFields>> FieldsOf(std::string_view line) {
    std::array<std::string_view, kFields> fields;
    for (std::size_t i = 0; i < kFields; ++i) {
        const std::size_t tab = line.find('\t');
        const bool last = tab == std::string_view::npos;
        fields[i] = line.substr(0, tab);
        if (last && i + 2 == kFields) return fields;
        if (last != (i + 1 == kFields)) return std::nullopt;
        line.remove_prefix(tab == std::string_view::npos ? line.size() : tab + 1);
    }
    return fields;
}

std::optional<Download> DownloadFrom(std::string_view line) {
    const auto fields = FieldsOf(line);
    if (!fields) return std::nullopt;
    const auto& [stateText, problemText, receivedText, totalText, path, address, endedText] = *fields;
    const auto state = NumberField(stateText), problem = NumberField(problemText), received = NumberField(receivedText),
               total = NumberField(totalText), ended = NumberField(endedText.empty() ? "0" : endedText);
    const auto place = FromUtf8(path), from = FromUtf8(address);
    if (!state || !problem || !received || !total || !ended || !place || !from) return std::nullopt;
    if (*state < 0 || *state >= kStates || *problem < 0 || *problem >= kProblems) return std::nullopt;
    if (*received < 0 || *ended < 0 || !place->starts_with(u'/') || from->empty()) return std::nullopt;
    Download download;
    download.Address = *from;
    download.Path = *place;
    download.Report = {static_cast<DownloadState>(*state), static_cast<DownloadProblem>(*problem), *received, *total};
    download.Ended = *ended;
    if (download.Active()) {
        download.Report.State = DownloadState::Broken;
        download.Report.Problem = DownloadProblem::Gone;
    }
    return download;
}

bool Fits(TextView text) { return text.find_first_of(u"\t\r\n") == TextView::npos; }

} // namespace

namespace DownloadList {

std::string Bytes(const std::deque<Download>& all) {
    std::string bytes;
    for (const Download& each : all) {
        // An address that holds the file itself is no address to fetch it from again.
        if (each.Kept == Remembered::No || !Fits(each.Path) || !Fits(each.Address)) continue;
        const TextView address = TextView(each.Address).starts_with(u"data:") ? TextView(u"data:") : each.Address;
        const DownloadReport& report = each.Report;
        for (const std::int64_t number : {static_cast<std::int64_t>(report.State),
                                          static_cast<std::int64_t>(report.Problem), report.Received, report.Total})
            bytes += std::to_string(number) + '\t';
        bytes += ToUtf8(each.Path) + '\t' + ToUtf8(address);
        if (each.Ended > 0) bytes += '\t' + std::to_string(each.Ended);
        bytes += '\n';
    }
    return bytes;
}

std::vector<Download> Read(std::string_view bytes) {
    std::vector<Download> all;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        // A line without an end was cut off.
        if (end == std::string_view::npos) break;
        if (auto download = DownloadFrom(bytes.substr(0, end))) all.push_back(std::move(*download));
        bytes.remove_prefix(end + 1);
    }
    return all;
}

} // namespace DownloadList
