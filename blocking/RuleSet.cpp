#include "blocking/RuleSet.h"

#include "blocking/RuleText.h"
#include "blocking/RuleTokens.h"

#include <algorithm>

namespace tessa {

namespace {

// Sorted hashes.
bool HoldsHash(std::span<const std::uint64_t> sorted, std::uint64_t hash) {
    return std::ranges::binary_search(sorted, hash);
}

// The words of an address, each once.
std::vector<TokenHash> TokensIn(std::string_view small) {
    constexpr std::size_t kSeen = 256; // a place for each word that was seen, by its last bits
    std::array<TokenHash, kSeen> seen{};
    std::vector<TokenHash> tokens;
    tokens.reserve(64);
    for (TokenReader reader(small); reader.Next();) {
        TokenHash& last = seen[reader.Hash() % kSeen];
        if (last != reader.Hash()) tokens.push_back(reader.Hash());
        last = reader.Hash();
    }
    return tokens;
}

RuleAnchor AnchorOf(std::uint32_t flags) {
    return flags & kAtHostFlag ? RuleAnchor::AtHost : flags & kAtStartFlag ? RuleAnchor::AtStart : RuleAnchor::Anywhere;
}

} // namespace

struct RuleSet::Asked {
    Asked(std::string_view address, const RulePage& from, RequestType type)
        : asItStands(address.substr(0, kMostRead)),
          small(ruletext::InSmall(asItStands)),
          matched(MatchedAddressOf(small)),
          page(from),
          types(SetOf(type)),
          tokens(TokensIn(small)) {}

    std::string_view asItStands;
    std::string small;      ///< in small letters
    MatchedAddress matched; ///< in `small`
    const RulePage& page;
    bool isThirdParty = false;
    RequestTypes types;
    std::vector<TokenHash> tokens; ///< each once
};

RuleSet::RuleSet(RuleImage image)
    : m_image(std::move(image)),
      m_rules(m_image.Part<PackedRule>(ImagePart::Rules)),
      m_words(m_image.Part<std::uint64_t>(ImagePart::Words)) {
    auto part = static_cast<std::uint32_t>(ImagePart::ImportantSlots);
    for (TokenTable& each : m_tables) {
        const auto slots = m_image.Part<std::uint64_t>(static_cast<ImagePart>(part++));
        each = TokenTable(slots, m_image.Part<std::uint32_t>(static_cast<ImagePart>(part++)));
    }
}

RuleVerdict RuleSet::VerdictOn(std::string_view address, const RulePage& page, RequestType type) const {
    RuleVerdict verdict;
    if (page.Except.Everything) return verdict;
    Asked request(address, page, type);
    request.isThirdParty = m_sites.Of(request.matched.Host()) != page.Site;
    std::uint32_t by = FindRule(RuleIndex::Important, request);
    const bool important = by != kNone;
    if (!important) by = FindRule(RuleIndex::Blocking, request);
    if (by == kNone) return verdict;
    verdict.By = Found(by);
    const std::uint32_t exception = important ? kNone : FindRule(RuleIndex::Exceptions, request);
    if (exception != kNone) {
        verdict.Exception = Found(exception);
        return verdict;
    }
    verdict.Blocked = true;
    const std::uint32_t redirect = FindRule(RuleIndex::Redirects, request);
    if (redirect != kNone) verdict.Instead = static_cast<EmptyResource>(m_rules[redirect].Flags >> kResourceShift);
    return verdict;
}

RulePage RuleSet::PageOf(std::string_view address) const {
    RulePage page;
    Asked asked(address, page, RequestType::Document);
    const std::string_view host = asked.matched.Host();
    page.Site = m_sites.Of(host);
    page.Hosts = HostHashes(host, page.Site);
    page.Except = ExceptionsFor(asked);
    return page;
}

PageExceptions RuleSet::ExceptionsFor(Asked& asked) const {
    const auto excepted = [&](RequestType type) {
        asked.types = SetOf(type);
        return FindRule(RuleIndex::Pages, asked) != kNone;
    };
    PageExceptions found;
    found.Everything = excepted(RequestType::Document);
    found.Hiding = found.Everything || excepted(RequestType::ElementHide);
    found.GenericHiding = found.Hiding || excepted(RequestType::GenericHide);
    found.SpecificHiding = found.Hiding || excepted(RequestType::SpecificHide);
    found.GenericRules = excepted(RequestType::GenericBlock);
    return found;
}

std::optional<std::vector<std::uint64_t>> RuleSet::ExceptedDomains() const {
    std::vector<std::uint64_t> domains;
    for (const PackedRule& each : m_rules) {
        if (!(each.Flags & kExceptionFlag) || !(each.Types & kPageTypes)) continue;
        const std::string_view pattern = m_image.TextAt(each.Pattern);
        const std::string_view host = pattern.substr(0, pattern.find_first_of("/^?:|"));
        if (each.Flags & kSomeSitesFlag && each.Domains < m_words.size()) {
            const auto named = m_words.subspan(each.Domains + 1);
            for (std::size_t at = 0; at < std::min<std::size_t>(m_words[each.Domains] & 0xFFFFFFFFU, named.size());
                 ++at)
                domains.push_back(named[at]);
        } else if (each.Flags & kAtHostFlag && host.find('*') == std::string_view::npos &&
                   (host.size() < pattern.size() || each.Flags & kHostAloneFlag)) {
            domains.push_back(HashOfDomain(host));
        } else {
            return std::nullopt;
        }
    }
    return domains;
}

std::uint32_t RuleSet::FindRule(RuleIndex index, const Asked& asked) const {
    const TokenTable& table = m_tables[static_cast<std::size_t>(index)];
    if (table.IsEmpty()) return kNone;
    for (const TokenHash each : asked.tokens)
        if (const std::uint32_t rule = FindAmong(table.Find(each), asked); rule != kNone) return rule;
    for (const std::uint64_t each : asked.page.Hosts)
        if (const std::uint32_t rule = FindAmong(table.Find(TokenOfDomain(each)), asked); rule != kNone) return rule;
    return FindAmong(table.Find(kNoToken), asked);
}

std::uint32_t RuleSet::FindAmong(std::span<const std::uint32_t> rules, const Asked& asked) const {
    for (const std::uint32_t each : rules)
        if (Fits(each, asked)) return each;
    return kNone;
}

bool RuleSet::Fits(std::uint32_t number, const Asked& asked) const {
    if (number >= m_rules.size()) return false;
    const PackedRule& rule = m_rules[number];
    if (!(rule.Types & asked.types)) return false;
    if (rule.Flags & (asked.isThirdParty ? kFirstPartyFlag : kThirdPartyFlag)) return false;
    if (asked.page.Except.GenericRules && !(rule.Flags & kSomeSitesFlag)) return false;
    if (rule.Domains != 0 && !HoldsDomain(rule.Domains, asked.page.Hosts)) return false;
    if (rule.Targets != 0 &&
        !HoldsDomain(rule.Targets, HostHashes(asked.matched.Host(), m_sites.Of(asked.matched.Host()))))
        return false;
    return PatternOfFits(number, rule, asked);
}

bool RuleSet::PatternOfFits(std::uint32_t number, const PackedRule& rule, const Asked& asked) const {
    const std::string_view pattern = m_image.TextAt(rule.Pattern);
    if (rule.Flags & kHostAloneFlag) return LeadsTo(asked.matched, pattern);
    const bool matchCase = rule.Flags & kMatchCaseFlag;
    if (rule.Flags & kExpressionFlag) {
        const auto letters = matchCase ? SafeRegex::Letters::AsTheyStand : SafeRegex::Letters::BigAsSmall;
        return m_expressions.try_emplace(number, pattern, letters).first->second.Finds(asked.asItStands);
    }
    MatchedAddress address = asked.matched;
    if (matchCase) address.Whole = asked.asItStands;
    return PatternFits(pattern, AnchorOf(rule.Flags), rule.Flags & kAtEndFlag, address);
}

// The narrowest domain decides.
bool RuleSet::HoldsDomain(std::uint32_t place, const HostHashes& domains) const {
    if (place >= m_words.size()) return false;
    const std::size_t those = m_words[place] & 0xFFFFFFFFU, others = m_words[place] >> 32U;
    if (those + others > m_words.size() - place - 1) return false;
    const auto named = m_words.subspan(place + 1, those), excluded = m_words.subspan(place + 1 + those, others);
    for (const std::uint64_t each : domains) {
        if (HoldsHash(named, each)) return true;
        if (HoldsHash(excluded, each)) return false;
    }
    return those == 0;
}

RuleFound RuleSet::Found(std::uint32_t number) const {
    return {m_image.TextAt(m_rules[number].Line), m_rules[number].List};
}

} // namespace tessa
