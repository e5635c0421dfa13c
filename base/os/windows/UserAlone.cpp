#include "base/os/windows/UserAlone.h"

#include "base/os/windows/Handle.h"
#include "base/os/windows/WidePath.h"

#include <aclapi.h>
#include <sddl.h>
#include <string>
#include <vector>

namespace tessa {

namespace {

/// Who a process runs as; empty when the system does not tell.
std::wstring UserOf(HANDLE process) {
    HANDLE opened = nullptr;
    if (!::OpenProcessToken(process, TOKEN_QUERY, &opened)) return {};
    const Handle token(opened);
    DWORD size = 0;
    ::GetTokenInformation(token.Get(), TokenUser, nullptr, 0, &size);
    std::vector<std::byte> bytes(size);
    if (!::GetTokenInformation(token.Get(), TokenUser, bytes.data(), size, &size)) return {};
    wchar_t* words = nullptr;
    if (!::ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(bytes.data())->User.Sid, &words)) return {};
    std::wstring user(words);
    ::LocalFree(words);
    return user;
}

} // namespace

UserAlone::UserAlone() {
    const std::wstring user = UserOf(::GetCurrentProcess());
    // Protected, so that nothing comes from the folder; all rights for that one user.
    const std::wstring words = L"D:P(A;;FA;;;" + user + L")";
    if (user.empty() ||
        !::ConvertStringSecurityDescriptorToSecurityDescriptorW(words.c_str(), SDDL_REVISION_1, &m_descriptor, nullptr))
        m_descriptor = nullptr;
    m_attributes = {sizeof m_attributes, m_descriptor, FALSE};
}

UserAlone::~UserAlone() {
    if (m_descriptor) ::LocalFree(m_descriptor);
}

void UserAlone::Close(HANDLE file) const {
    BOOL present = FALSE, byDefault = FALSE;
    PACL rights = nullptr;
    if (!m_descriptor || !::GetSecurityDescriptorDacl(m_descriptor, &present, &rights, &byDefault) || !present) return;
    ::SetSecurityInfo(file, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION, nullptr,
                      nullptr, rights, nullptr);
}

bool UserAlone::OpenUp(const std::string& path) {
    std::wstring wide = WidePath(path);
    PACL before = nullptr, after = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (::GetNamedSecurityInfoW(wide.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &before,
                                nullptr, &descriptor) != ERROR_SUCCESS)
        return false;
    wchar_t user[] = L"CURRENT_USER";
    EXPLICIT_ACCESSW all{};
    ::BuildExplicitAccessWithNameW(&all, user, FILE_ALL_ACCESS, GRANT_ACCESS, NO_INHERITANCE);
    const bool set = ::SetEntriesInAclW(1, &all, before, &after) == ERROR_SUCCESS &&
                     ::SetNamedSecurityInfoW(wide.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                             after, nullptr) == ERROR_SUCCESS;
    ::LocalFree(after);
    ::LocalFree(descriptor);
    return set;
}

bool UserAlone::Runs(DWORD process) {
    const Handle other(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
    const std::wstring user = other.Open() ? UserOf(other.Get()) : std::wstring();
    return !user.empty() && user == UserOf(::GetCurrentProcess());
}

} // namespace tessa
