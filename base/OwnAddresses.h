#pragma once
#include "base/Text.h"

namespace tessa {

/// The addresses of what the program itself shows in tabs, and of what its pages ask the program for.
namespace OwnAddresses {

inline constexpr TextView kScheme = u"tessaview";
inline constexpr TextView kPrefix = u"tessaview:";

/// The home page.
inline constexpr TextView kStart = u"tessaview:start";
inline constexpr TextView kHelp = u"tessaview:help";
/// What a new private tab says of itself.
inline constexpr TextView kPrivate = u"tessaview:private";
/// What was read, to search in and to forget.
inline constexpr TextView kHistory = u"tessaview:history";
/// How a page will look on paper; a number and a name follow.
inline constexpr TextView kPreviews = u"tessaview:preview/";

/// Has the program open a TessaGroup, whose name follows, encoded. It is no page.
inline constexpr TextView kOpenGroup = u"tessaview:group?";
/// Answers whether advertisements are to be blocked; "yes" or "no" follows. It is no page either.
inline constexpr TextView kBlocking = u"tessaview:blocking?";
/// Has the program search; the words follow as a form writes them. It is no page either.
inline constexpr TextView kSearchForm = u"tessaview:search";
inline constexpr TextView kSearchWords = u"tessaview:search?words=";

/// What stands behind the scheme.
[[nodiscard]] constexpr TextView PathOf(TextView own) { return own.substr(kPrefix.size()); }

enum class Page { None, Start, Help, History, Private, Preview };

/// The page at a path, decoded, without what follows a "?" or "#".
[[nodiscard]] Page PageAt(TextView path);

} // namespace OwnAddresses

} // namespace tessa
