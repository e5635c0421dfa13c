#pragma once
#include "blocking/NetworkRule.h"

#include <string_view>

namespace tessa {

/// An address that patterns are held against: its bytes, and where its host stands in them.
struct MatchedAddress {
    std::string_view Whole;
    std::size_t HostBegin = 0, HostEnd = 0;

    [[nodiscard]] std::string_view Host() const { return Whole.substr(HostBegin, HostEnd - HostBegin); }
};

/// The address with the place of its host; an empty host where there is none.
[[nodiscard]] MatchedAddress MatchedAddressOf(std::string_view address);

/// Whether the pattern, in which "*" and "^" stand for others, fits. Its time grows with the address and the pattern,
/// whatever they are.
[[nodiscard]] bool PatternFits(std::string_view pattern, RuleAnchor anchor, bool atEnd, const MatchedAddress& address);

/// Whether the address leads to that host or a part of it.
[[nodiscard]] bool LeadsTo(const MatchedAddress& address, std::string_view host);

} // namespace tessa
