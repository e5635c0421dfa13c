#pragma once
#include <string>
#include <string_view>

namespace tessa {

/// The host as addresses have it: each label in other letters than ASCII as "xn--" and its punycode. The host is UTF-8
/// in small letters; what is no UTF-8 or too long stays as it is.
[[nodiscard]] std::string HostInAscii(std::string_view host);

} // namespace tessa
