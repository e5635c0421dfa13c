#pragma once
#include "blocking/RequestTypes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// Where the pattern of a rule has to stand in an address.
enum class RuleAnchor { Anywhere, AtStart, AtHost };

/// Whose requests: those to the page's own site, those to others, or all.
enum class RuleParty { Any, First, Third };

/// What the requests of a rule are made of, as its line says. Letters are small unless the case counts.
struct NetworkRule {
    std::string Pattern; ///< with "*" and "^"; or a regular expression without its slashes
    RuleAnchor Anchor = RuleAnchor::Anywhere;
    bool AtEnd = false; ///< the address ends where the pattern does
    bool IsExpression = false;
    bool MatchCase = false;
    bool Exception = false;
    bool Important = false; ///< no exception counts against it
    bool BadFilter = false; ///< takes back the rule that is the same otherwise
    bool RedirectOnly = false;
    RuleParty Party = RuleParty::Any;
    RequestTypes Types = kAnyPart;
    std::vector<std::string> Domains, NotDomains; ///< of pages
    std::vector<std::string> Targets, NotTargets; ///< of requests
    std::string Redirect;                         ///< what is given instead; empty for nothing

    /// Whether it is about a host and all its parts alone, as "||ads.example^".
    [[nodiscard]] bool IsHostAlone() const;
    /// The same for rules that say the same.
    [[nodiscard]] std::uint64_t Identity() const;
};

/// The rule that a host in a hosts file stands for.
[[nodiscard]] NetworkRule RuleForHost(std::string_view host);

} // namespace tessa
