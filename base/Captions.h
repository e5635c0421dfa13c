#pragma once
#include "base/Text.h"

#include <optional>

namespace tessa {

// Captions, in which a "&" marks the access key behind it. Also how names from outside are shown, such as names of
// files, which may contain one.

/// The text as one line that reads in its written order. Control characters, marks of direction, and bytes of a name
/// that are no text become U+FFFD.
[[nodiscard]] Text OneLine(TextView text);

/// A text as a caption: nothing in it is an access key. And back.
[[nodiscard]] Text EscapedCaption(TextView text);
[[nodiscard]] Text PlainCaption(TextView caption);
/// A caption as it reads: without access key and the dots that announce a dialog.
[[nodiscard]] Text WithoutAccessKey(TextView caption);

/// The access key of a caption, a capital one where it is a letter of ASCII; nothing when it has none.
[[nodiscard]] std::optional<char16_t> AccessKeyOf(TextView caption);

/// A tool's caption that reads as that line; a "&" in it is no access key.
[[nodiscard]] Text MenuCaption(TextView text);

} // namespace tessa
