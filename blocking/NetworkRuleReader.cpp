#include "blocking/NetworkRuleReader.h"

#include "base/Percent.h"
#include "blocking/PatternMatch.h"
#include "blocking/Punycode.h"
#include "blocking/RuleOptions.h"
#include "blocking/RuleText.h"
#include "blocking/libraries/SafeRegex.h"

#include <algorithm>
#include <array>
#include <span>

namespace tessa {

using namespace ruletext;

namespace {

constexpr std::size_t kLongestPattern = 2000;

// Letters of other scripts reach servers as numbers, and hosts as "xn--".
std::string InAddressLetters(std::string_view pattern, RuleAnchor anchor) {
    const std::size_t hostEnd =
        anchor == RuleAnchor::AtHost ? std::min(pattern.find_first_of("/^*?:|"), pattern.size()) : 0;
    std::string all = HostInAscii(pattern.substr(0, hostEnd));
    for (const char each : pattern.substr(hostEnd))
        all += static_cast<unsigned char>(each) < 0x80 ? std::string(1, each) : PercentEncoded({&each, 1});
    return all;
}

void TakeAnchors(NetworkRule& rule, std::string_view& pattern) {
    if (pattern.starts_with("||")) {
        rule.Anchor = RuleAnchor::AtHost;
        pattern.remove_prefix(2);
    } else if (pattern.starts_with('|')) {
        rule.Anchor = RuleAnchor::AtStart;
        pattern.remove_prefix(1);
    }
    if (pattern.ends_with('|')) {
        rule.AtEnd = true;
        pattern.remove_suffix(1);
    }
    // A star beside an anchor takes it back.
    if (pattern.starts_with('*')) rule.Anchor = RuleAnchor::Anywhere;
    if (pattern.ends_with('*')) rule.AtEnd = false;
    while (pattern.starts_with('*')) pattern.remove_prefix(1);
    while (pattern.ends_with('*')) pattern.remove_suffix(1);
}

RuleTrouble ReadPattern(NetworkRule& rule, std::string_view pattern) {
    if (pattern.size() > kLongestPattern) return RuleTrouble::TooLong;
    if (pattern.size() > 2 && pattern.starts_with('/') && pattern.ends_with('/')) {
        rule.IsExpression = true;
        rule.Pattern = pattern.substr(1, pattern.size() - 2);
        const auto letters = rule.MatchCase ? SafeRegex::Letters::AsTheyStand : SafeRegex::Letters::BigAsSmall;
        return SafeRegex(rule.Pattern, letters).IsValid() ? RuleTrouble::None : RuleTrouble::BadExpression;
    }
    if (std::ranges::any_of(pattern, IsBlank)) return RuleTrouble::BadDomain;
    TakeAnchors(rule, pattern);
    if (pattern.empty()) rule.AtEnd = false;
    rule.Pattern = InAddressLetters(pattern, rule.Anchor);
    if (!rule.MatchCase) rule.Pattern = InSmall(rule.Pattern);
    return RuleTrouble::None;
}

// Lists that are older than browsers that tell web sockets apart call them "other".
void AddSockets(NetworkRule& rule) {
    const bool ofSockets = rule.Anchor == RuleAnchor::AtStart && !rule.IsExpression &&
                           (rule.Pattern.starts_with("ws:") || rule.Pattern.starts_with("wss:"));
    if (ofSockets && rule.Types & SetOf(RequestType::Other)) rule.Types |= SetOf(RequestType::WebSocket);
}

// Addresses that have nothing in common but what all have.
constexpr std::array<std::string_view, 3> kSecureAddresses{"https://q.jk/", "https://w4.xz/~", "https://vvv.uy/-?"};
constexpr std::array<std::string_view, 3> kPlainAddresses{"http://q.jk/", "http://w4.xz/~", "http://vvv.uy/-?"};

bool FitsEach(const NetworkRule& rule, std::span<const std::string_view> addresses) {
    if (!rule.IsExpression)
        return std::ranges::all_of(addresses, [&](std::string_view each) {
            return PatternFits(rule.Pattern, rule.Anchor, rule.AtEnd, MatchedAddressOf(each));
        });
    const SafeRegex expression(rule.Pattern, SafeRegex::Letters::BigAsSmall);
    return std::ranges::all_of(addresses, [&](std::string_view each) { return expression.Finds(each); });
}

// One letter is in nearly all.
bool SaysNothing(const NetworkRule& rule) {
    return !rule.IsExpression &&
           std::ranges::count_if(rule.Pattern, [](char each) { return each != '*' && each != '^'; }) <= 1;
}

// Who names kinds of requests or sites means it.
bool IsAboutEverything(const NetworkRule& rule) {
    if (rule.Types != kAnyPart || rule.Party != RuleParty::Any || !rule.Domains.empty() || !rule.Targets.empty())
        return false;
    return SaysNothing(rule) || FitsEach(rule, kSecureAddresses) || FitsEach(rule, kPlainAddresses);
}

} // namespace

NetworkRuleRead ReadNetworkRule(std::string_view line) {
    NetworkRuleRead read;
    NetworkRule& rule = read.Rule;
    if (line.starts_with("@@")) {
        rule.Exception = true;
        line.remove_prefix(2);
    }
    const RuleParts parts = SplitRule(line);
    read.Trouble = ReadOptions(rule, parts.Options);
    if (read.Trouble == RuleTrouble::None) read.Trouble = ReadPattern(rule, parts.Pattern);
    AddSockets(rule);
    if (read.Trouble == RuleTrouble::None && IsAboutEverything(rule)) read.Trouble = RuleTrouble::MatchesEverything;
    return read;
}

} // namespace tessa
