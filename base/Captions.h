#pragma once
#include "base/Text.h"

// How names that come from outside, as of files, are shown. A file may have any name.

/// The text as one line that reads in its written order: control characters, those that turn the direction of writing,
/// and the bytes of a name that are no text become U+FFFD.
[[nodiscard]] Text OneLine(TextView text);

/// A tool's caption that reads as that text; a "&" in it is no access key.
[[nodiscard]] Text MenuCaption(TextView text);
