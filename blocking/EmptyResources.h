#pragma once
#include <string_view>

namespace tessa {

/// What a page can be given instead of what it asks for, so that its scripts go on.
enum class EmptyResource { None, Script, Text, Style, Page, Picture, Json, Xml };

/// What rules call by that name; `None` for what would need more than emptiness.
[[nodiscard]] EmptyResource EmptyResourceOf(std::string_view name);

/// The type that a server would name, and the bytes.
[[nodiscard]] std::string_view MediaTypeOf(EmptyResource resource);
[[nodiscard]] std::string_view BytesOf(EmptyResource resource);

} // namespace tessa
