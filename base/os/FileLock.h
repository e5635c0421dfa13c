#pragma once
#include <chrono>
#include <cstdint>
#include <string>

namespace tessa {

/// A lock that all processes share, held from construction until it is let go. The system gives it back when its
/// process dies, so a killed program holds up nobody.
class FileLock {
public:
    static constexpr std::chrono::milliseconds kPatience{10000};

    /// Holds nothing.
    FileLock() = default;
    /// Waits that long at most for other holders. The lock file is made when missing, for the user alone, and stays.
    /// One that may only be read will do.
    explicit FileLock(const std::string& lockFile, std::chrono::milliseconds patience = kPatience);
    ~FileLock() { LetGo(); }
    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;

    [[nodiscard]] bool Held() const { return m_held; }
    /// Why it is not held: another process has it. Otherwise there can be no such file.
    [[nodiscard]] bool Taken() const { return m_taken; }
    void LetGo();

private:
    std::intptr_t m_file = -1; ///< the system's number of the open file, -1 for none
    bool m_held = false;
    bool m_taken = false;
};

} // namespace tessa
