#include "base/os/windows/WidePath.h"

#include "base/Text.h"

#include <algorithm>
#include <windows.h>

namespace tessa {

namespace {

/// The system cuts longer ones, or refuses them, unless they are marked. A folder has room for a short name more.
constexpr std::size_t kLongestUnmarked = 240;
constexpr std::wstring_view kMark = L"\\\\?\\";

// The units in which `PathFromBytes` keeps the three bytes of half a character.
bool IsKept(char16_t unit, unsigned from, unsigned to) { return unit >= 0xDC00 + from && unit <= 0xDC00 + to; }

bool IsKeptHalf(TextView text, std::size_t at) {
    return at + 2 < text.size() && IsKept(text[at], 0xED, 0xED) && IsKept(text[at + 1], 0xA0, 0xBF) &&
           IsKept(text[at + 2], 0x80, 0xBF);
}

std::wstring Marked(const std::wstring& path) {
    std::wstring full(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    if (full.empty() || full.starts_with(kMark)) return full.empty() ? path : full;
    if (full.starts_with(L"\\\\")) return std::wstring(kMark) + L"UNC" + full.substr(1);
    return std::wstring(kMark) + full;
}

} // namespace

std::wstring Wide(const std::string& bytes) {
    const Text text = PathFromBytes(bytes);
    std::wstring wide;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!IsUnpaired(text, at)) {
            wide += static_cast<wchar_t>(text[at]);
        } else if (IsKeptHalf(text, at)) {
            wide += static_cast<wchar_t>(0xD000 | (text[at + 1] & 0x3F) << 6 | (text[at + 2] & 0x3F));
            at += 2;
        } else {
            wide += L'\xFFFD';
        }
    }
    return wide;
}

std::wstring WidePath(const std::string& path) {
    std::wstring wide = Wide(path);
    return wide.size() < kLongestUnmarked || wide.starts_with(kMark) ? wide : Marked(wide);
}

std::string BytesOfWide(std::wstring_view wide) {
    const Text text(wide.begin(), wide.end());
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (IsUnpaired(text, at)) {
            bytes += '\xED';
            bytes += static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
            bytes += static_cast<char>(0x80 | (unit & 0x3F));
        } else if (unit >= 0xD800 && unit <= 0xDBFF) {
            bytes += ToUtf8(TextView(text).substr(at++, 2));
        } else {
            bytes += unit == u'\\' ? std::string("/") : ToUtf8(TextView(&unit, 1));
        }
    }
    return bytes;
}

} // namespace tessa
