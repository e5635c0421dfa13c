#include "base/os/LogFile.h"

#include "base/os/AppendedFile.h"
#include "base/os/AtomicFile.h"
#include "base/os/FileLock.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <utility>

namespace tessa {

namespace {

/// How far below its limit the file stays: instances that write at once may each add a line.
constexpr std::size_t kRoomForOthers = std::size_t{64} << 10;
constexpr std::array<std::string_view, 3> kLevelWords{"info", "warning", "error"};
constexpr std::array<std::string_view, 8> kPartWords{"program", "instances", "settings", "session",
                                                     "files",   "engine",    "pages",    "desktop"};

std::string TimeWords(std::int64_t seconds) {
    const std::chrono::sys_seconds time{std::chrono::seconds(seconds)};
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::array<char, 64> words{};
    std::snprintf(words.data(), words.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return words.data();
}

// One line stays one, whatever it says.
std::string OneLogLine(std::string_view words) {
    std::string line(words.substr(0, LogFile::kLongestLine));
    for (char& each : line) {
        if (static_cast<unsigned char>(each) < ' ' || each == '\x7F') each = ' ';
    }
    return line;
}

} // namespace

LogFile::~LogFile() { PutRepeats(); }

void LogFile::Write(LogLevel level, LogPart part, std::string_view words) {
    const std::lock_guard guard(m_mutex);
    std::string line = std::string(kLevelWords.at(static_cast<std::size_t>(level))) + ' ' +
                       std::string(kPartWords.at(static_cast<std::size_t>(part))) + ": " + OneLogLine(words);
    if (line == m_last) {
        ++m_repeats;
        return;
    }
    PutRepeats();
    Put(line);
    m_last = std::move(line);
}

std::vector<std::string> LogFile::LastLines(std::size_t most) {
    const std::lock_guard guard(m_mutex);
    PutRepeats();
    const std::string bytes = ReadWholeFile(m_path, kMostBytes).value_or(std::string());
    std::vector<std::string> lines;
    for (std::size_t end = bytes.rfind('\n'); end != std::string::npos && lines.size() < most;) {
        const std::size_t before = end == 0 ? std::string::npos : bytes.rfind('\n', end - 1);
        const std::size_t begin = before == std::string::npos ? 0 : before + 1;
        lines.insert(lines.begin(), bytes.substr(begin, end - begin));
        end = before;
    }
    return lines;
}

void LogFile::PutRepeats() {
    if (m_repeats > 0) Put("  the line above came " + std::to_string(std::exchange(m_repeats, 0)) + " times more");
}

void LogFile::Put(const std::string& line) {
    const std::string bytes = TimeWords(m_now()) + ' ' + line + '\n';
    MakeRoom(bytes.size());
    AppendForUser(m_path, bytes);
}

void LogFile::MakeRoom(std::size_t bytes) const {
    const auto fits = [&] {
        const auto size = FileSize(m_path);
        return !size || *size + bytes <= kMostBytes - kRoomForOthers;
    };
    if (fits()) return;
    const FileLock lock(m_path + ".lock", {});
    // Another instance makes room at this moment, or has just done so.
    if (!lock.Held() || fits()) return;
    const std::string all = ReadWholeFile(m_path, kMostBytes).value_or(std::string());
    const std::size_t half = all.find('\n', all.size() / 2);
    // Where nothing can be replaced the log begins anew: it must not grow.
    if (WriteWholeFile(m_path, half == std::string::npos ? std::string_view() : std::string_view(all).substr(half + 1),
                       Readers::UserAlone) == Outcome::Failed)
        EmptyFile(m_path);
}

} // namespace tessa
