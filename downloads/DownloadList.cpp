#include "downloads/DownloadList.h"

#include "base/Records.h"
#include "base/os/Paths.h"

#include <array>

namespace tessa {

namespace {

constexpr TextView kDownload = u"Download";
constexpr TextView kState = u"State", kProblem = u"Problem", kReceived = u"Received", kTotal = u"Total",
                   kPath = u"Path", kAddress = u"Address", kEnded = u"Ended";
constexpr std::int64_t kProblems = static_cast<std::int64_t>(DownloadProblem::Other) + 1;
constexpr std::int64_t kStates = static_cast<std::int64_t>(DownloadState::Cancelled) + 1;

/// What the first versions wrote, a line a download: these fields in this order, separated by tabs. Where nobody knew
/// when it was done, the last one is not there.
constexpr std::array kFirstFields{kState, kProblem, kReceived, kTotal, kPath, kAddress, kEnded};

// Nothing else begins with a name in brackets.
bool IsFirst(std::string_view bytes) { return !bytes.empty() && bytes.front() != '['; }

std::optional<Record> RecordOfFirst(std::string_view line) {
    Record record{.Name = Text(kDownload), .Values = {}};
    for (std::size_t i = 0; i < kFirstFields.size(); ++i) {
        const std::size_t tab = line.find('\t');
        auto value = FromUtf8(line.substr(0, tab));
        if (!value) return std::nullopt;
        record.Values.emplace(kFirstFields[i], *std::move(value));
        const bool last = tab == std::string_view::npos;
        if (last && i + 2 == kFirstFields.size()) return record;
        if (last != (i + 1 == kFirstFields.size())) return std::nullopt;
        line.remove_prefix(last ? line.size() : tab + 1);
    }
    return record;
}

std::vector<Record> RecordsOfFirst(std::string_view lines) {
    std::vector<Record> records;
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        if (auto record = RecordOfFirst(lines.substr(0, end))) records.push_back(*std::move(record));
        lines.remove_prefix(end + 1);
    }
    return records;
}

std::optional<DownloadReport> ReportOf(const Record& record) {
    const auto state = record.FindNumber(kState), problem = record.FindNumber(kProblem),
               received = record.FindNumber(kReceived), total = record.FindNumber(kTotal);
    if (!state || !problem || !received || !total) return std::nullopt;
    if (*state < 0 || *state >= kStates || *problem < 0 || *problem >= kProblems || *received < 0) return std::nullopt;
    return DownloadReport{static_cast<DownloadState>(*state), static_cast<DownloadProblem>(*problem), *received,
                          *total};
}

// When it was done; 0 where the list does not say.
std::optional<std::int64_t> EndOf(const Record& record) {
    const Text* text = record.FindText(kEnded);
    if (!text || text->empty()) return 0;
    const auto ended = record.FindNumber(kEnded);
    return ended && *ended >= 0 ? ended : std::nullopt;
}

std::optional<Download> DownloadOf(const Record& record) {
    const auto report = ReportOf(record);
    const auto ended = EndOf(record);
    const Text *path = record.FindText(kPath), *address = record.FindText(kAddress);
    if (record.Name != kDownload || !record.Whole || !report || !ended || !path || !address) return std::nullopt;
    if (!IsAbsolute(PathToBytes(*path)) || address->empty()) return std::nullopt;
    Download download;
    download.Address = *address;
    download.Path = *path;
    download.Report = *report;
    download.Ended = *ended;
    if (download.Active()) {
        download.Report.State = DownloadState::Broken;
        download.Report.Problem = DownloadProblem::Gone;
    }
    return download;
}

Record RecordOf(const Download& download) {
    const DownloadReport& report = download.Report;
    Record record{.Name = Text(kDownload), .Values = {}};
    const auto add = [&](TextView field, TextView value) { record.Values.emplace(field, Text(value)); };
    add(kState, Decimal(static_cast<std::int64_t>(report.State)));
    add(kProblem, Decimal(static_cast<std::int64_t>(report.Problem)));
    add(kReceived, Decimal(report.Received));
    add(kTotal, Decimal(report.Total));
    add(kPath, download.Path);
    // An address that holds the file itself is no address to fetch it from again.
    add(kAddress, download.Address.starts_with(u"data:") ? TextView(u"data:") : TextView(download.Address));
    if (download.Ended > 0) add(kEnded, Decimal(download.Ended));
    return record;
}

} // namespace

namespace DownloadList {

std::string Bytes(const std::deque<Download>& all) {
    std::vector<Record> records;
    for (const Download& each : all) {
        if (each.Kept == Remembered::Yes) records.push_back(RecordOf(each));
    }
    return RecordBytes(records);
}

std::vector<Download> Read(std::string_view bytes) {
    const std::string_view lines = WholeLines(bytes);
    std::vector<Download> all;
    for (const Record& record : IsFirst(lines) ? RecordsOfFirst(lines) : ParseRecords(lines)) {
        if (auto download = DownloadOf(record)) all.push_back(*std::move(download));
    }
    return all;
}

} // namespace DownloadList

} // namespace tessa
