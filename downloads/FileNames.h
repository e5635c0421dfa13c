#pragma once
#include "base/Text.h"

#include <functional>

namespace tessa {

// Names of files that pages and servers suggest, made fit to lie in a folder of the user's.

/// One file name, whatever is suggested. It has no path, is not hidden, and holds nothing that turns the direction of
/// the text or is unseen. It is no name of a device elsewhere, and no kind of file that starts a program when opened.
/// It has at most 180 bytes of UTF-8, with its ending kept. Never empty.
[[nodiscard]] Text CleanFileName(TextView suggested);

/// The name that an address suggests: its last part, with its %XX decoded.
[[nodiscard]] Text FileNameOfAddress(TextView address);

/// The name itself, or with " (1)", " (2)", ... before its ending: the first that is not taken.
[[nodiscard]] Text FreeFileName(TextView name, const std::function<bool(TextView)>& taken);

} // namespace tessa
