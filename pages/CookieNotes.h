#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// When a cookie came, which the engine does not say. Domain, path and name together make a cookie one.
struct CookieNote {
    std::string Domain, Path, Name; ///< bytes, as the engine gives them
    std::int64_t Time = 0;          ///< in seconds since 1970
    friend bool operator==(const CookieNote&, const CookieNote&) = default;
};

/// The notes on disk: records, see base/Records.h.
namespace CookieNotes {

[[nodiscard]] std::string Bytes(std::span<const CookieNote> notes);

/// Also reads what the first versions wrote. What is damaged is left out.
[[nodiscard]] std::vector<CookieNote> Read(std::string_view bytes);

} // namespace CookieNotes

} // namespace tessa
