#pragma once
#include <string>
#include <windows.h>

namespace tessa {

/// A handle of the system that closes itself.
class Handle {
public:
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    ~Handle() {
        if (Open()) ::CloseHandle(m_handle);
    }
    Handle(Handle&& other) noexcept : m_handle(other.m_handle) { other.m_handle = INVALID_HANDLE_VALUE; }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    [[nodiscard]] HANDLE Get() const { return m_handle; }
    /// Some calls answer with one value for none, some with the other.
    [[nodiscard]] bool Open() const { return m_handle && m_handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_handle;
};

/// Others may do with an open file what they like, as they may on other systems.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Opens what is at a path, a folder too, with those rights; links are followed. Not open when it cannot be.
[[nodiscard]] Handle OpenAt(const std::string& path, DWORD rights);

} // namespace tessa
