#include "blocking/hiding/HidingRules.h"

#include "blocking/hiding/HidingCompiler.h"

#include <algorithm>
#include <unordered_map>

namespace tessa {

HidingRules::HidingRules(const RuleImage& image)
    : m_image(image),
      m_selectors(m_image.Part<PackedText>(ImagePart::Selectors)),
      m_sites(m_image.Part<SiteHiding>(ImagePart::SiteHiding)),
      m_keySlots(m_image.Part<std::uint64_t>(ImagePart::KeySlots)),
      m_keyed(m_keySlots, m_image.Part<std::uint32_t>(ImagePart::KeyLists)) {}

std::string_view HidingRules::SelectorAt(std::uint32_t number) const {
    return number < m_selectors.size() ? m_image.TextAt(m_selectors[number]) : std::string_view();
}

// The narrowest domain that a rule names decides whether it is for the host.
SiteHidden HidingRules::ForSite(const HostHashes& hosts) const {
    SiteHidden found;
    std::unordered_set<std::uint32_t> decided;
    std::vector<std::uint32_t> hidden;
    for (const std::uint64_t each : hosts) {
        for (const SiteHiding& entry : std::ranges::equal_range(m_sites, each, {}, &SiteHiding::Domain)) {
            if (!decided.insert(entry.RuleAndKind >> 2U).second) continue;
            const auto kind = static_cast<SiteHidingKind>(entry.RuleAndKind & 3U);
            if (kind == SiteHidingKind::Hide)
                hidden.push_back(entry.Selector);
            else if (kind != SiteHidingKind::Not)
                found.ShownAnyway.insert(entry.Selector);
        }
    }
    for (const std::uint32_t each : hidden)
        if (!found.ShownAnyway.contains(each)) found.Selectors.push_back(SelectorAt(each));
    return found;
}

std::vector<std::string_view> HidingRules::ForKeys(const std::vector<std::string>& keys, const SiteHidden& site) const {
    std::vector<std::string_view> found;
    for (const std::string& key : keys) {
        for (const std::uint32_t each : m_keyed.Find(TokenOfKey(key)))
            if (!site.ShownAnyway.contains(each)) found.push_back(SelectorAt(each));
    }
    return found;
}

std::vector<std::string_view> HidingRules::Always(const SiteHidden& site) const {
    std::vector<std::string_view> found;
    for (const std::uint32_t each : m_image.Part<std::uint32_t>(ImagePart::AlwaysHidden))
        if (!site.ShownAnyway.contains(each)) found.push_back(SelectorAt(each));
    return found;
}

std::vector<std::string_view> HidingRules::Parts() const {
    std::vector<std::string_view> parts;
    for (const PackedText each : m_image.Part<PackedText>(ImagePart::KeyParts)) parts.push_back(m_image.TextAt(each));
    return parts;
}

std::vector<TokenHash> HidingRules::Keys() const {
    std::vector<TokenHash> keys;
    for (const std::uint64_t each : m_keySlots)
        if (each != 0) keys.push_back(static_cast<TokenHash>(each >> 32U));
    return keys;
}

std::vector<std::uint64_t> HidingRules::Domains() const {
    std::vector<std::uint64_t> domains;
    for (const SiteHiding& each : m_sites)
        if (domains.empty() || domains.back() != each.Domain) domains.push_back(each.Domain);
    return domains;
}

std::string HidingSheet(const std::vector<std::string_view>& selectors) {
    std::string sheet;
    for (const std::string_view each : selectors) {
        if (each.empty()) continue;
        sheet += each;
        sheet += "{display:none!important}\n";
    }
    return sheet;
}

} // namespace tessa
