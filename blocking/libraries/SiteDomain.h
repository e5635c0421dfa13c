#pragma once
#include <string_view>

namespace tessa {

/// The domain that somebody has registered, as a part of the host given: "example.co.uk" of "www.example.co.uk". The
/// host is in small letters, other scripts as "xn--". The host itself where there is none, as for numbers, names of a
/// local network, and public suffixes.
[[nodiscard]] std::string_view SiteDomainOf(std::string_view host);

/// Whether the host is a number, of version 4 or, in brackets, 6.
[[nodiscard]] bool IsNumericHost(std::string_view host);

} // namespace tessa
