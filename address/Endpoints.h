#pragma once
#include "base/Text.h"

namespace tessa {

/// The outside hosts that the product's addresses are built on. Just before a request leaves, the engine sends each of
/// them on to the service that the user has chosen.
namespace Endpoints {

inline constexpr TextView kSearchHost = u"search.tessaview.example";
inline constexpr TextView kAdHost = u"ads.tessaview.example";
inline constexpr TextView kFindHost = u"find.tessaview.example";
inline constexpr TextView kSupportMailbox = u"support@tessaview.example";

/// What the search box's label calls the service.
inline constexpr TextView kSearchServiceName = u"the Web";

/// Words to search for follow, appended as they are.
inline constexpr TextView kSearch = u"https://search.tessaview.example/d/search/p/tessaview/?Keywords=";
/// The search partner's start page.
inline constexpr TextView kSearchStart = u"https://search.tessaview.example/d/redirect?Partner=tessaview&url="
                                         u"http%3a%2f%2fsearch.tessaview.example%2fd%2fhome%2fp%2ftessaview%2f";
/// A link's keyword follows, appended as it is.
inline constexpr TextView kShop = u"https://ads.tessaview.example/ad.asp?id=";
inline constexpr TextView kFind = u"https://find.tessaview.example/find.asp?id=";

} // namespace Endpoints

} // namespace tessa
