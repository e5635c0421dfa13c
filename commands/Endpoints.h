#pragma once
#include "common/Text.h"

/// The outside addresses that the product's commands are built on.
namespace Endpoints {

inline constexpr TextView kSearch = u"https://search.tessaview.example/d/search/p/tessaview/?Keywords=";

} // namespace Endpoints
