#pragma once
#include <string>
#include <string_view>

namespace tessa {

// Names are wide on this system, UTF-16 without any rule; the core's paths are bytes.

/// A path as the system takes it, also a very long one. Bytes that are no UTF-8 become U+FFFD, but for those in which
/// `BytesOfWide` writes half of a character.
[[nodiscard]] std::wstring WidePath(const std::string& path);
/// The same without what makes a long path possible; for names and addresses of pipes.
[[nodiscard]] std::wstring Wide(const std::string& bytes);
/// A name or path as UTF-8, with '/' between names. A name may hold half a character. It is written as three bytes that
/// are no UTF-8, so `WidePath` brings the same name back.
[[nodiscard]] std::string BytesOfWide(std::wstring_view wide);

} // namespace tessa
