#pragma once
#include <QString>

/// A lock that all processes share, held from construction to destruction. The system gives it back when its process
/// dies, so a killed program holds up nobody.
class QtFileLock {
public:
    /// Waits for other holders, so many milliseconds at most. The lock file is made when missing and stays.
    explicit QtFileLock(const QString& lockFile, int patience = 10000);
    ~QtFileLock();
    QtFileLock(const QtFileLock&) = delete;
    QtFileLock& operator=(const QtFileLock&) = delete;

    [[nodiscard]] bool Held() const { return m_held; }

private:
    int m_descriptor = -1;
    bool m_held = false;
};
