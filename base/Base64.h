#pragma once
#include <string>
#include <string_view>

namespace tessa {

/// The bytes in letters, as addresses of the scheme "data" have them.
[[nodiscard]] std::string Base64(std::string_view bytes);

} // namespace tessa
