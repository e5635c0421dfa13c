#pragma once
#include <string>
#include <string_view>

namespace tessa {

/// Text in UTF-8 as it stands in HTML, between tags or in quotes of either kind.
[[nodiscard]] std::string HtmlEscaped(std::string_view utf8);

} // namespace tessa
