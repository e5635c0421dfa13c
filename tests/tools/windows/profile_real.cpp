// Runs the calls of a script (ProfileScript.h) by the real profile functions of this platform.
//   profile_real A|W SCRIPT
// A calls the functions of single bytes, W the wide ones with the texts as Windows-1252.

#include "tests/tools/ProfileScript.h"

#include <string_view>
#include <windows.h>

namespace tessa {

namespace {

using ProfileScript::Field;

constexpr UINT kWindows1252 = 1252;

std::wstring WideOf(const std::string& bytes) {
    std::wstring wide(bytes.size(), L'\0');
    const int size = static_cast<int>(bytes.size());
    wide.resize(
        static_cast<std::size_t>(::MultiByteToWideChar(kWindows1252, 0, bytes.data(), size, wide.data(), size)));
    return wide;
}

std::string BytesOf(const std::wstring& wide) {
    std::string bytes(wide.size(), '\0');
    const int size = static_cast<int>(wide.size());
    bytes.resize(static_cast<std::size_t>(
        ::WideCharToMultiByte(kWindows1252, 0, wide.data(), size, bytes.data(), size, nullptr, nullptr)));
    return bytes;
}

/// An argument that may be none.
struct WideField {
    explicit WideField(const Field& field) : some(field), text(field ? WideOf(*field) : std::wstring()) {}
    [[nodiscard]] const wchar_t* Pointer() const { return some ? text.c_str() : nullptr; }
    bool some;
    std::wstring text;
};

const char* Pointer(const Field& field) { return field ? field->c_str() : nullptr; }

std::string GetByBytes(const std::string& file, const Field& section, const Field& key, const Field& whenMissing,
                       std::size_t size) {
    std::string buffer(size + 1, '\0');
    buffer.resize(::GetPrivateProfileStringA(Pointer(section), Pointer(key), Pointer(whenMissing), buffer.data(),
                                             static_cast<DWORD>(size), file.c_str()));
    return buffer;
}

std::string GetWide(const std::string& file, const Field& section, const Field& key, const Field& whenMissing,
                    std::size_t size) {
    const WideField s(section), k(key), d(whenMissing);
    std::wstring buffer(size + 1, L'\0');
    buffer.resize(::GetPrivateProfileStringW(s.Pointer(), k.Pointer(), d.Pointer(), buffer.data(),
                                             static_cast<DWORD>(size), WideOf(file).c_str()));
    return BytesOf(buffer);
}

bool WriteByBytes(const std::string& file, const Field& section, const Field& key, const Field& value) {
    return ::WritePrivateProfileStringA(Pointer(section), Pointer(key), Pointer(value), file.c_str()) != 0;
}

bool WriteWide(const std::string& file, const Field& section, const Field& key, const Field& value) {
    const WideField s(section), k(key), v(value);
    return ::WritePrivateProfileStringW(s.Pointer(), k.Pointer(), v.Pointer(), WideOf(file).c_str()) != 0;
}

} // namespace

} // namespace tessa

int main(int argc, char** argv) {
    using namespace tessa;
    const std::string_view form = argc == 3 ? argv[1] : "";
    if (form == "A") return ProfileScript::RunAll(argv[2], {GetByBytes, WriteByBytes});
    if (form == "W") return ProfileScript::RunAll(argv[2], {GetWide, WriteWide});
    std::fputs("usage: profile_real A|W SCRIPT\n", stderr);
    return 2;
}
