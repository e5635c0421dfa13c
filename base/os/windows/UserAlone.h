#pragma once
#include <string>
#include <windows.h>

namespace tessa {

/// The user in whose name the program runs, and what lets nobody else in.
class UserAlone {
public:
    UserAlone();
    ~UserAlone();
    UserAlone(const UserAlone&) = delete;
    UserAlone& operator=(const UserAlone&) = delete;

    /// For what is made. Null when it cannot be told who the user is, so that it is made as usual.
    [[nodiscard]] SECURITY_ATTRIBUTES* ForNew() { return m_descriptor ? &m_attributes : nullptr; }
    /// Takes everybody else's rights on an open file away.
    void Close(HANDLE file) const;
    /// Gives the user all rights on a file or folder, and leaves those of others.
    [[nodiscard]] static bool OpenUp(const std::string& path);
    /// Whether a process runs in the name of that same user.
    [[nodiscard]] static bool Runs(DWORD process);

private:
    PSECURITY_DESCRIPTOR m_descriptor = nullptr;
    SECURITY_ATTRIBUTES m_attributes{};
};

} // namespace tessa
