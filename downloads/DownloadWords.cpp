#include "downloads/DownloadWords.h"

#include "base/PlainText.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr std::array kUnits{TextView(u" bytes"), TextView(u" kB"), TextView(u" MB"), TextView(u" GB"),
                            TextView(u" TB")};
constexpr std::size_t kFolderInList = 200;
constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 3600;

Text Left(std::int64_t count, TextView unit) {
    return u"About " + Decimal(count) + u' ' + Text(unit) + (count == 1 ? u"" : u"s") + u" left";
}

Text Amount(const DownloadReport& report) {
    const Text received = DownloadWords::Size(report.Received);
    return report.Total < 0 ? received : received + u" of " + DownloadWords::Size(report.Total);
}

Text Running(const Download& download, std::int64_t now) {
    const Text amount = Amount(download.Report);
    const auto rate = download.Rate.PerSecond(now);
    if (rate == 0) return amount + u", stalled";
    const auto left = download.SecondsLeft(now);
    // What one waits for comes first: in a low list there may be no room for more.
    const Text text = left ? DownloadWords::TimeLeft(*left) + u", " + amount : amount;
    return rate ? text + u", " + DownloadWords::Size(*rate) + u" a second" : text;
}

} // namespace

namespace DownloadWords {

Text Size(std::int64_t bytes) {
    std::size_t unit = 0;
    std::int64_t tenths = bytes;
    // Above bytes, counted in tenths of the unit.
    for (std::int64_t rest = bytes; rest >= 1000 && unit + 1 < kUnits.size(); rest /= 1000) {
        tenths = rest / 100;
        ++unit;
    }
    if (unit == 0) return Decimal(bytes) + (bytes == 1 ? Text(u" byte") : Text(kUnits[0]));
    const bool whole = tenths >= 1000 || tenths % 10 == 0;
    return Decimal(tenths / 10) + (whole ? Text() : u"." + Decimal(tenths % 10)) + Text(kUnits[unit]);
}

Text TimeLeft(std::int64_t seconds) {
    if (seconds < 2) return u"Almost done";
    if (seconds < kMinute) return Left(seconds, u"second");
    if (seconds < kHour) return Left((seconds + kMinute / 2) / kMinute, u"minute");
    return Left((seconds + kHour / 2) / kHour, u"hour");
}

Text Why(DownloadProblem problem) {
    switch (problem) {
    case DownloadProblem::None:
        return {};
    case DownloadProblem::Connection:
        return u"The connection broke off.";
    case DownloadProblem::DiskFull:
        return u"The disk is full.";
    case DownloadProblem::NoAccess:
        return u"The file may not be written there.";
    case DownloadProblem::Server:
        return u"The server refused to send the file.";
    case DownloadProblem::Gone:
        return u"It was not finished.";
    case DownloadProblem::Other:
        return u"Something went wrong.";
    }
    return {};
}

Text Standing(const Download& download, std::int64_t now) {
    const DownloadReport& report = download.Report;
    switch (report.State) {
    case DownloadState::Running:
        return Running(download, now);
    case DownloadState::Paused:
        return u"Paused, " + Amount(report);
    case DownloadState::Broken:
        return Why(report.Problem) + u' ' + Amount(report);
    case DownloadState::Done:
        return u"Done, " + Size(report.Received);
    case DownloadState::Cancelled:
        return u"Cancelled";
    }
    return {};
}

Text Progress(const Downloads& downloads) {
    std::int64_t count = 0, received = 0, total = 0;
    bool known = true, runs = false;
    for (const Download& each : downloads.All()) {
        if (!each.Active()) continue;
        ++count;
        runs = runs || each.Report.State == DownloadState::Running;
        known = known && each.Report.Total > 0;
        received += each.Report.Received;
        total += std::max<std::int64_t>(each.Report.Total, 0);
    }
    if (count == 0) return {};
    const Text what = count == 1 ? Text() : Decimal(count) + u" files, ";
    const Text far =
        known ? Decimal(std::min<std::int64_t>(received * 100 / std::max<std::int64_t>(total, 1), 100)) + u" %"
              : Size(received);
    return (runs ? u"Saving " : u"Paused: ") + what + far;
}

Text Place(const Download& download, TextView time) {
    if (download.Report.State != DownloadState::Done) return {};
    const Text in = PlainLine(download.Folder(), kFolderInList);
    return time.empty() ? u"In " + in : Text(time) + Text(kInFolder) + in;
}

OwnQuestion ExitQuestion(std::size_t running) {
    const Text many = Decimal(static_cast<std::int64_t>(running)) + u" downloads are still running";
    return {running == 1 ? Text(u"A download is still running") : many,
            running == 1 ? u"What it has saved so far is lost when the program ends."
                         : u"What they have saved so far is lost when the program ends.",
            u"&Go On Downloading", u"Stop and E&xit"};
}

} // namespace DownloadWords

} // namespace tessa
