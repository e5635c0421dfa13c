#include "blocking/NetworkCompiler.h"

#include "blocking/EmptyResources.h"
#include "blocking/HostHashes.h"
#include "blocking/RuleText.h"

#include <algorithm>
#include <limits>

namespace tessa {

namespace {

std::uint32_t FlagsOf(const NetworkRule& rule) {
    std::uint32_t flags = static_cast<std::uint32_t>(EmptyResourceOf(rule.Redirect)) << kResourceShift;
    const auto set = [&flags](bool is, PackedFlag flag) { flags |= is ? flag : 0U; };
    set(rule.Exception, kExceptionFlag);
    set(rule.Anchor == RuleAnchor::AtStart, kAtStartFlag);
    set(rule.Anchor == RuleAnchor::AtHost, kAtHostFlag);
    set(rule.AtEnd, kAtEndFlag);
    set(rule.IsExpression, kExpressionFlag);
    set(rule.MatchCase, kMatchCaseFlag);
    set(rule.IsHostAlone(), kHostAloneFlag);
    set(rule.Party == RuleParty::First, kFirstPartyFlag);
    set(rule.Party == RuleParty::Third, kThirdPartyFlag);
    set(!rule.Domains.empty(), kSomeSitesFlag);
    return flags;
}

} // namespace

// A list may be made by somebody who wants all requests to be slow.
RuleTrouble NetworkCompiler::CheckSpeed(const NetworkRule& rule, const std::vector<RuleToken>& tokens) {
    if (!rule.Domains.empty()) return RuleTrouble::None;
    if (!tokens.empty()) {
        std::uint32_t fewest = std::numeric_limits<std::uint32_t>::max();
        for (const RuleToken& each : tokens) fewest = std::min(fewest, m_tokenCounts[each.Hash]);
        return fewest >= kMostUnderAWord ? RuleTrouble::TooSlow : RuleTrouble::None;
    }
    if (m_forAll >= kMostForAll || (rule.IsExpression && m_expressionsForAll >= kMostExpressionsForAll))
        return RuleTrouble::TooSlow;
    ++m_forAll;
    if (rule.IsExpression) ++m_expressionsForAll;
    return RuleTrouble::None;
}

PackedText NetworkCompiler::Keep(std::string_view text) {
    const PackedText kept{static_cast<std::uint32_t>(m_strings.size()), static_cast<std::uint32_t>(text.size())};
    m_strings += text;
    return kept;
}

std::uint32_t NetworkCompiler::WriteDomains(const std::vector<std::string>& those,
                                            const std::vector<std::string>& others) {
    if (those.empty() && others.empty()) return 0;
    const auto place = static_cast<std::uint32_t>(m_words.size());
    m_words.push_back(those.size() | (static_cast<std::uint64_t>(others.size()) << 32U));
    for (const auto* part : {&those, &others}) {
        const auto begin = static_cast<std::ptrdiff_t>(m_words.size());
        for (const std::string& each : *part) m_words.push_back(HashOfDomain(each));
        std::sort(m_words.begin() + begin, m_words.end());
    }
    return place;
}

PackedRule NetworkCompiler::Packed(const NetworkRule& rule, std::string_view line, std::uint32_t list) {
    PackedRule packed;
    packed.Flags = FlagsOf(rule);
    packed.Types = rule.Types;
    packed.List = list;
    packed.Line = Keep(line);
    // Most patterns are a part of their line.
    const std::string_view pattern =
        std::string_view(rule.Pattern).substr(0, rule.Pattern.size() - (rule.IsHostAlone() ? 1 : 0));
    const std::size_t within = line.find(pattern);
    packed.Pattern = within == std::string_view::npos
                         ? Keep(pattern)
                         : PackedText{packed.Line.Begin + static_cast<std::uint32_t>(within),
                                      static_cast<std::uint32_t>(pattern.size())};
    packed.Domains = WriteDomains(rule.Domains, rule.NotDomains);
    packed.Targets = WriteDomains(rule.Targets, rule.NotTargets);
    return packed;
}

RuleTrouble NetworkCompiler::Add(const NetworkRule& rule, std::string_view line, std::uint32_t list) {
    const std::uint64_t identity = rule.Identity();
    if (rule.BadFilter) return m_takenBack.insert(identity), RuleTrouble::None;
    if (!m_identities.insert(identity).second) return RuleTrouble::None;
    if (rule.IsExpression && ++m_expressions > kMostExpressions) return RuleTrouble::TooSlow;
    const std::vector<RuleToken> tokens = TokensOf(rule);
    if (const RuleTrouble slow = CheckSpeed(rule, tokens); slow != RuleTrouble::None) return slow;
    m_keys.push_back({identity, static_cast<std::uint32_t>(m_tokens.size()), static_cast<std::uint32_t>(tokens.size()),
                      rule.Important, rule.RedirectOnly});
    for (const RuleToken& each : tokens) ++m_tokenCounts[each.Hash];
    m_tokens.insert(m_tokens.end(), tokens.begin(), tokens.end());
    m_rules.push_back(Packed(rule, line, list));
    return RuleTrouble::None;
}

std::vector<TokenHash> NetworkCompiler::KeysOf(std::size_t rule) const {
    const Keys& keys = m_keys[rule];
    const RuleToken* best = nullptr;
    const auto costOf = [this](const RuleToken& each) {
        return m_tokenCounts.at(each.Hash) + (each.Common ? 1'000'000U : 0U);
    };
    for (std::uint32_t at = keys.FirstToken; at < keys.FirstToken + keys.Tokens; ++at)
        if (!best || costOf(m_tokens[at]) < costOf(*best)) best = &m_tokens[at];
    if (best && !best->Common) return {best->Hash};
    if (m_rules[rule].Flags & kSomeSitesFlag) {
        std::vector<TokenHash> sites;
        const std::uint32_t first = m_rules[rule].Domains;
        for (std::uint64_t at = 1; at <= (m_words[first] & 0xFFFFFFFFU); ++at)
            sites.push_back(TokenOfDomain(m_words[first + at]));
        return sites;
    }
    return {best ? best->Hash : kNoToken};
}

void NetworkCompiler::AddTo(Entries& entries, std::size_t rule) const {
    const PackedRule& packed = m_rules[rule];
    const Keys& keys = m_keys[rule];
    const bool exception = packed.Flags & kExceptionFlag;
    const bool ofParts = packed.Types & ~kPageTypes;
    const auto add = [&](RuleIndex index) {
        for (const TokenHash key : KeysOf(rule))
            entries.at(static_cast<std::size_t>(index)).emplace_back(key, static_cast<std::uint32_t>(rule));
    };
    if (exception && packed.Types & kPageTypes) add(RuleIndex::Pages);
    if (exception && ofParts) add(RuleIndex::Exceptions);
    if (exception || !ofParts) return;
    if (!keys.RedirectOnly) add(keys.Important ? RuleIndex::Important : RuleIndex::Blocking);
    if (packed.Flags >> kResourceShift) add(RuleIndex::Redirects);
}

std::string NetworkCompiler::LettersOf(const PackedRule& rule) const {
    if (rule.Flags & kExpressionFlag) return {};
    return ruletext::InSmall(std::string_view(m_strings).substr(rule.Pattern.Begin, rule.Pattern.Length));
}

std::vector<PackedFours> NetworkCompiler::FoursOfRules() const {
    FourCounts counts;
    for (const PackedRule& each : m_rules) counts.Count(LettersOf(each));
    std::vector<PackedFours> fours;
    fours.reserve(m_rules.size());
    for (const PackedRule& each : m_rules) fours.push_back(counts.RarestOf(LettersOf(each)));
    return fours;
}

void NetworkCompiler::WriteTo(RuleImageWriter& writer) {
    Entries entries;
    for (std::size_t rule = 0; rule < m_rules.size(); ++rule)
        if (!m_takenBack.contains(m_keys[rule].Identity)) AddTo(entries, rule);
    auto part = static_cast<std::uint32_t>(ImagePart::ImportantSlots);
    for (auto& each : entries) {
        const TokenArrays made = MakeTokenArrays(std::move(each));
        writer.Set(static_cast<ImagePart>(part++), std::span<const std::uint64_t>(made.Slots));
        writer.Set(static_cast<ImagePart>(part++), std::span<const std::uint32_t>(made.Lists));
    }
    writer.Set(ImagePart::Rules, std::span<const PackedRule>(m_rules));
    writer.Set(ImagePart::Fours, std::span<const PackedFours>(FoursOfRules()));
    writer.Set(ImagePart::Words, std::span<const std::uint64_t>(m_words));
}

} // namespace tessa
