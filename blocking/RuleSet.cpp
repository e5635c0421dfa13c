#include "blocking/RuleSet.h"

#include "blocking/RuleText.h"
#include "blocking/RuleTokens.h"

#include <algorithm>

namespace tessa {

using namespace ruletext;

namespace {

// Sorted hashes.
bool HoldsHash(std::span<const std::uint64_t> sorted, std::uint64_t hash) {
    return std::ranges::binary_search(sorted, hash);
}

RuleAnchor AnchorOf(std::uint32_t flags) {
    return flags & kAtHostFlag ? RuleAnchor::AtHost : flags & kAtStartFlag ? RuleAnchor::AtStart : RuleAnchor::Anywhere;
}

// What stands in an address as it stands in a pattern, however the address is encoded.
bool IsPlain(char each) {
    return IsDigit(each) || IsSmallLetter(Small(each)) ||
           std::string_view("-./:_").find(each) != std::string_view::npos;
}

std::string_view LongestPlain(std::string_view pattern) {
    std::string_view longest;
    while (!pattern.empty()) {
        const auto end = std::ranges::find_if_not(pattern, IsPlain);
        const auto length = static_cast<std::size_t>(end - pattern.begin());
        if (length > longest.size()) longest = pattern.substr(0, length);
        pattern.remove_prefix(std::min(length + 1, pattern.size()));
    }
    return longest;
}

// Pages hold these against their addresses. Shorter ones are in most.
constexpr std::size_t kLeastPart = 4, kMostParts = 100;

} // namespace

RuleSet::RuleSet(RuleImage image)
    : m_image(std::move(image)),
      m_rules(m_image.Part<PackedRule>(ImagePart::Rules)),
      m_fours(m_image.Part<PackedFours>(ImagePart::Fours)),
      m_words(m_image.Part<std::uint64_t>(ImagePart::Words)) {
    auto part = static_cast<std::uint32_t>(ImagePart::ImportantSlots);
    for (TokenTable& each : m_tables) {
        const auto slots = m_image.Part<std::uint64_t>(static_cast<ImagePart>(part++));
        each = TokenTable(slots, m_image.Part<std::uint32_t>(static_cast<ImagePart>(part++)));
    }
}

void RuleSet::Ask(std::string_view address) const {
    m_isCut = address.size() > kMostRead;
    m_asked.Ask(address.substr(0, kMostRead));
}

RuleVerdict RuleSet::VerdictOn(std::string_view address, const RulePage& page, RequestType type) const {
    RuleVerdict verdict;
    if (page.Except.Everything) return verdict;
    Ask(address);
    m_asked.Types = SetOf(type);
    m_asked.IsThirdParty = m_sites.Of(m_asked.Matched().Host()) != page.Site;
    std::uint32_t by = FindRule(RuleIndex::Important, page);
    const bool important = by != kNone;
    if (!important) by = FindRule(RuleIndex::Blocking, page);
    if (by == kNone) return verdict;
    verdict.By = Found(by);
    const std::uint32_t exception = important ? kNone : FindRule(RuleIndex::Exceptions, page);
    if (exception != kNone) {
        verdict.Exception = Found(exception);
        return verdict;
    }
    verdict.Blocked = true;
    const std::uint32_t redirect = FindRule(RuleIndex::Redirects, page);
    if (redirect != kNone) verdict.Instead = static_cast<EmptyResource>(m_rules[redirect].Flags >> kResourceShift);
    return verdict;
}

RulePage RuleSet::PageOf(std::string_view address) const {
    RulePage page;
    Ask(address);
    m_asked.IsThirdParty = false;
    const std::string_view host = m_asked.Matched().Host();
    page.Site = m_sites.Of(host);
    page.Hosts = HostHashes(host, page.Site);
    page.Except = ExceptionsFor(page);
    return page;
}

// Each rule that fits takes its types out of those that are still asked for.
PageExceptions RuleSet::ExceptionsFor(const RulePage& page) const {
    m_asked.Types = kPageTypes;
    for (std::uint32_t rule = 0; m_asked.Types != 0 && rule != kNone;) {
        rule = FindRule(RuleIndex::Pages, page);
        if (rule != kNone) m_asked.Types &= ~m_rules[rule].Types;
    }
    const auto excepted = [&](RequestType type) { return !(m_asked.Types & SetOf(type)); };
    PageExceptions found;
    found.Everything = excepted(RequestType::Document);
    found.Hiding = found.Everything || excepted(RequestType::ElementHide);
    found.GenericHiding = found.Hiding || excepted(RequestType::GenericHide);
    found.SpecificHiding = found.Hiding || excepted(RequestType::SpecificHide);
    found.GenericRules = excepted(RequestType::GenericBlock);
    return found;
}

ExceptedPages RuleSet::Excepted() const {
    ExceptedPages pages;
    for (const PackedRule& each : m_rules) {
        if (!(each.Flags & kExceptionFlag) || !(each.Types & kPageTypes)) continue;
        const std::string_view pattern = m_image.TextAt(each.Pattern);
        const std::string_view host = pattern.substr(0, pattern.find_first_of("/^?:|"));
        if (each.Flags & kSomeSitesFlag && each.Domains < m_words.size()) {
            const auto named = m_words.subspan(each.Domains + 1);
            const auto most = std::min<std::size_t>(m_words[each.Domains] & 0xFFFFFFFFU, named.size());
            pages.Domains.insert(pages.Domains.end(), named.begin(), named.begin() + static_cast<std::ptrdiff_t>(most));
        } else if (each.Flags & kAtHostFlag && host.find('*') == std::string_view::npos &&
                   (host.size() < pattern.size() || each.Flags & kHostAloneFlag)) {
            pages.Domains.push_back(HashOfDomain(host));
        } else if (const std::string_view part = LongestPlain(pattern);
                   !(each.Flags & kExpressionFlag) && part.size() >= kLeastPart && pages.Parts.size() < kMostParts) {
            pages.Parts.push_back(InSmall(part));
        } else {
            pages.Any = true;
        }
    }
    return pages;
}

std::uint32_t RuleSet::FindRule(RuleIndex index, const RulePage& page) const {
    const TokenTable& table = m_tables[static_cast<std::size_t>(index)];
    if (table.IsEmpty()) return kNone;
    for (const TokenHash each : m_asked.Tokens())
        if (const std::uint32_t rule = FindAmong(table.Find(each), page); rule != kNone) return rule;
    for (const std::uint64_t each : page.Hosts)
        if (const std::uint32_t rule = FindAmong(table.Find(TokenOfDomain(each)), page); rule != kNone) return rule;
    return FindAmong(table.Find(kNoToken), page);
}

std::uint32_t RuleSet::FindAmong(std::span<const std::uint32_t> rules, const RulePage& page) const {
    for (const std::uint32_t each : rules)
        if (each < m_fours.size() && m_asked.Fours().MayHold(m_fours[each]) && Fits(each, page)) return each;
    return kNone;
}

bool RuleSet::Fits(std::uint32_t number, const RulePage& page) const {
    if (number >= m_rules.size()) return false;
    const PackedRule& rule = m_rules[number];
    if (!(rule.Types & m_asked.Types)) return false;
    if (rule.Flags & (m_asked.IsThirdParty ? kFirstPartyFlag : kThirdPartyFlag)) return false;
    if (page.Except.GenericRules && !(rule.Flags & kSomeSitesFlag)) return false;
    if (rule.Domains != 0 && !HoldsDomain(rule.Domains, page.Hosts)) return false;
    const std::string_view host = m_asked.Matched().Host();
    if (rule.Targets != 0 && !HoldsDomain(rule.Targets, HostHashes(host, m_sites.Of(host)))) return false;
    return PatternOfFits(number, rule);
}

bool RuleSet::PatternOfFits(std::uint32_t number, const PackedRule& rule) const {
    const std::string_view pattern = m_image.TextAt(rule.Pattern);
    if (rule.Flags & kHostAloneFlag) return LeadsTo(m_asked.Matched(), pattern);
    const bool matchCase = rule.Flags & kMatchCaseFlag;
    if (rule.Flags & kExpressionFlag) {
        const auto letters = matchCase ? SafeRegex::Letters::AsTheyStand : SafeRegex::Letters::BigAsSmall;
        return m_expressions.try_emplace(number, pattern, letters).first->second.Finds(m_asked.AsItStands());
    }
    MatchedAddress address = m_asked.Matched();
    if (matchCase) address.Whole = m_asked.AsItStands();
    if (m_isCut && rule.Flags & kAtEndFlag) return false;
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
