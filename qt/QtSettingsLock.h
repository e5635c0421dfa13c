#pragma once
#include <QString>

/// A lock that all processes share, held from construction to destruction. The system gives it back when its process
/// dies, so a killed program holds up nobody.
class QtSettingsLock {
public:
    /// Waits for other holders, ten seconds at most. The lock file is made when missing and stays.
    explicit QtSettingsLock(const QString& lockFile);
    ~QtSettingsLock();
    QtSettingsLock(const QtSettingsLock&) = delete;
    QtSettingsLock& operator=(const QtSettingsLock&) = delete;

    [[nodiscard]] bool Held() const { return m_held; }

private:
    int m_descriptor = -1;
    bool m_held = false;
};
