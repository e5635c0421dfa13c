#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

enum class LogLevel { Info, Warning, Error };

/// Which part of the program a line is about.
enum class LogPart { Program, Instances, Settings, Session, Files, Engine, Pages, Desktop };

/// A log on disk that forgets its oldest lines: never longer than `kMostBytes`, readable by the user alone. Several
/// instances may write to one file. A log that cannot be written is none; nobody is told. Safe to use in all threads.
class LogFile {
public:
    static constexpr std::size_t kMostBytes = std::size_t{1} << 20;
    /// What a line says is cut there.
    static constexpr std::size_t kLongestLine = 400;

    /// `now` gives the time in seconds since 1970.
    LogFile(std::string path, std::function<std::int64_t()> now) : m_path(std::move(path)), m_now(std::move(now)) {}
    /// Puts down what is held back.
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// Adds a line with the time. The same one over and over is written once, and how often it came once it is over.
    void Write(LogLevel level, LogPart part, std::string_view words);
    /// The newest lines, the oldest of them first.
    [[nodiscard]] std::vector<std::string> LastLines(std::size_t most);

private:
    void PutRepeats();
    void Put(const std::string& line);
    void MakeRoom(std::size_t bytes) const;

    const std::string m_path;
    const std::function<std::int64_t()> m_now;
    std::mutex m_mutex;
    std::string m_last; ///< the line that was written last, without its time
    std::size_t m_repeats = 0;
};

} // namespace tessa
