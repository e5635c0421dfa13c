#include "blocking/RuleSet.h"

#include "blocking/RuleText.h"
#include "blocking/RuleTokens.h"
#include "blocking/libraries/SiteDomain.h"

#include <algorithm>

namespace tessa {

namespace {

// Sorted hashes.
bool HoldsHash(std::span<const std::uint64_t> sorted, std::uint64_t hash) {
    return std::ranges::binary_search(sorted, hash);
}

RuleAnchor AnchorOf(std::uint32_t flags) {
    return flags & kAtHostFlag ? RuleAnchor::AtHost : flags & kAtStartFlag ? RuleAnchor::AtStart : RuleAnchor::Anywhere;
}

} // namespace

RuleRequest::RuleRequest(std::string_view address, std::string_view page, RequestType type)
    : AsItStands(address.substr(0, kMostRead)), Small(ruletext::InSmall(AsItStands)), Matched(MatchedAddressOf(Small)),
      Types(SetOf(type)) {
    const std::string_view host = Matched.Host(), site = SiteDomainOf(host);
    const std::string small = ruletext::InSmall(page.substr(0, kMostRead));
    const std::string_view pageHost = MatchedAddressOf(small).Host(), pageSite = SiteDomainOf(pageHost);
    Hosts = HostHashes(host, site);
    Sites = HostHashes(pageHost, pageSite);
    IsThirdParty = site != pageSite;
}

RuleSet::RuleSet(RuleImage image)
    : m_image(std::move(image)), m_rules(m_image.Part<PackedRule>(ImagePart::Rules)),
      m_words(m_image.Part<std::uint64_t>(ImagePart::Words)) {
    auto part = static_cast<std::uint32_t>(ImagePart::ImportantSlots);
    for (TokenTable& each : m_tables) {
        const auto slots = m_image.Part<std::uint64_t>(static_cast<ImagePart>(part++));
        each = TokenTable(slots, m_image.Part<std::uint32_t>(static_cast<ImagePart>(part++)));
    }
}

RuleVerdict RuleSet::VerdictOn(const RuleRequest& request) const {
    RuleVerdict verdict;
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

PageExceptions RuleSet::ExceptionsFor(std::string_view page) const {
    RuleRequest request(page, page, RequestType::Document);
    const auto excepted = [&](RequestType type) {
        request.Types = SetOf(type);
        return FindRule(RuleIndex::Pages, request) != kNone;
    };
    PageExceptions found;
    found.Everything = excepted(RequestType::Document);
    found.Hiding = found.Everything || excepted(RequestType::ElementHide);
    found.GenericHiding = found.Hiding || excepted(RequestType::GenericHide);
    found.SpecificHiding = found.Hiding || excepted(RequestType::SpecificHide);
    found.GenericRules = excepted(RequestType::GenericBlock);
    return found;
}

std::uint32_t RuleSet::FindRule(RuleIndex index, const RuleRequest& request) const {
    const TokenTable& table = m_tables[static_cast<std::size_t>(index)];
    if (table.IsEmpty()) return kNone;
    for (TokenReader reader(request.Small); reader.Next();)
        if (const std::uint32_t rule = FindAmong(table.Find(reader.Hash()), request); rule != kNone) return rule;
    for (const std::uint64_t each : request.Sites)
        if (const std::uint32_t rule = FindAmong(table.Find(TokenOfDomain(each)), request); rule != kNone) return rule;
    return FindAmong(table.Find(kNoToken), request);
}

std::uint32_t RuleSet::FindAmong(std::span<const std::uint32_t> rules, const RuleRequest& request) const {
    for (const std::uint32_t each : rules)
        if (Fits(each, request)) return each;
    return kNone;
}

bool RuleSet::Fits(std::uint32_t number, const RuleRequest& request) const {
    if (number >= m_rules.size()) return false;
    const PackedRule& rule = m_rules[number];
    if (!(rule.Types & request.Types)) return false;
    if (rule.Flags & (request.IsThirdParty ? kFirstPartyFlag : kThirdPartyFlag)) return false;
    if (request.NoGeneric && !(rule.Flags & kSomeSitesFlag)) return false;
    if (rule.Domains != 0 && !HoldsDomain(rule.Domains, request.Sites)) return false;
    if (rule.Targets != 0 && !HoldsDomain(rule.Targets, request.Hosts)) return false;
    return PatternOfFits(number, rule, request);
}

bool RuleSet::PatternOfFits(std::uint32_t number, const PackedRule& rule, const RuleRequest& request) const {
    const std::string_view pattern = m_image.TextAt(rule.Pattern);
    if (rule.Flags & kHostAloneFlag) return LeadsTo(request.Matched, pattern);
    const bool matchCase = rule.Flags & kMatchCaseFlag;
    if (rule.Flags & kExpressionFlag) {
        const auto letters = matchCase ? SafeRegex::Letters::AsTheyStand : SafeRegex::Letters::BigAsSmall;
        return m_expressions.try_emplace(number, pattern, letters).first->second.Finds(request.AsItStands);
    }
    MatchedAddress address = request.Matched;
    if (matchCase) address.Whole = request.AsItStands;
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
