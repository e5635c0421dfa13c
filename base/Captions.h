#pragma once
#include "base/Text.h"

// Captions, in which a "&" marks the access key behind it, and how names that come from outside are shown, as of files,
// which may have any.

/// The text as one line that reads in its written order: control characters, those that turn the direction of writing,
/// and the bytes of a name that are no text become U+FFFD.
[[nodiscard]] Text OneLine(TextView text);

/// A text as a caption: nothing in it is an access key. And back.
[[nodiscard]] Text EscapedCaption(TextView text);
[[nodiscard]] Text PlainCaption(TextView caption);
/// A caption as it reads: without access key and the dots that announce a dialog.
[[nodiscard]] Text WithoutAccessKey(TextView caption);

/// A tool's caption that reads as that line; a "&" in it is no access key.
[[nodiscard]] Text MenuCaption(TextView text);
