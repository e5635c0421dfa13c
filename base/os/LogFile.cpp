#include "base/os/LogFile.h"

#include "base/os/AtomicFile.h"
#include "base/os/FileLock.h"

#include <array>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

/// How far below its limit the file stays: instances that write at once may each add a line.
constexpr std::size_t kRoomForOthers = std::size_t{64} << 10;
constexpr std::array<std::string_view, 3> kLevelWords{"info", "warning", "error"};
constexpr std::array<std::string_view, 8> kPartWords{"program", "instances", "settings", "session",
                                                     "files",   "engine",    "pages",    "desktop"};

std::string TimeWords(std::int64_t seconds) {
    const auto time = static_cast<std::time_t>(seconds);
    std::tm parts{};
    std::array<char, 32> words{};
    if (!::gmtime_r(&time, &parts)) return "-";
    return {words.data(), std::strftime(words.data(), words.size(), "%Y-%m-%dT%H:%M:%SZ", &parts)};
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
    const int file =
        ::open(m_path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR);
    if (file < 0) return;
    ::fchmod(file, S_IRUSR | S_IWUSR);
    (void)!::write(file, bytes.data(), bytes.size());
    ::close(file);
}

void LogFile::MakeRoom(std::size_t bytes) const {
    struct stat facts {};
    if (::stat(m_path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return;
    const auto fits = [&] { return static_cast<std::size_t>(facts.st_size) + bytes <= kMostBytes - kRoomForOthers; };
    if (fits()) return;
    const FileLock lock(m_path + ".lock", {});
    // Another instance makes room at this moment, or has just done so.
    if (!lock.Held() || ::stat(m_path.c_str(), &facts) != 0 || fits()) return;
    const std::string all = ReadWholeFile(m_path, kMostBytes).value_or(std::string());
    const std::size_t half = all.find('\n', all.size() / 2);
    // Where nothing can be replaced the log begins anew: it must not grow.
    if (WriteWholeFile(m_path, half == std::string::npos ? std::string_view() : std::string_view(all).substr(half + 1),
                       Readers::UserAlone) == Outcome::Failed)
        (void)!::truncate(m_path.c_str(), 0);
}
