#pragma once
#include "base/Text.h"

namespace tessa {

// Web addresses as texts, read as the engine reads them. A backslash counts as a slash, and any number of slashes may
// follow the colon.

namespace Address {

/// What shows nothing.
inline constexpr TextView kBlank = u"about:blank";

/// The text without leading and trailing blanks and control characters of any script. They lead nowhere. They must not
/// hide a scheme from the code that checks it while the code that opens it sees it.
[[nodiscard]] TextView Trimmed(TextView text);

/// Whether what lies there can be had again at a later start. A print preview goes with its tab.
[[nodiscard]] bool ComesBack(TextView address);

/// The text in small letters, for readers that ignore the case of all letters. For them the long s is an s, and the
/// Kelvin sign a k.
[[nodiscard]] Text CaseFolded(TextView text);

/// What stands before the colon of an address, in small letters; empty without a colon.
[[nodiscard]] Text SchemeOf(TextView address);

/// Whether a text that stood behind a colon is a port, alone or with a path behind it. Then a host stands before the
/// colon, not a scheme.
[[nodiscard]] bool BeginsWithPort(TextView text);

/// The host that a web address leads to, as a part of the text given, without user and port. Empty for an address that
/// leads to none, and for a text that does not begin with a scheme.
[[nodiscard]] TextView HostIn(TextView address);

/// The address without a user's name and password, which are nobody else's business. A text that is no web address
/// stays as it is.
[[nodiscard]] Text WithoutUser(TextView address);

/// What addresses have in common that lead to the same page. It has no "www." before its host, no slash at the end of
/// its path, and no fragment. Its scheme and host are in small letters. A fragment that names a page of its own, as
/// "#!/news" and "#/news" do, stays.
[[nodiscard]] Text PageOf(TextView address);

} // namespace Address

} // namespace tessa
