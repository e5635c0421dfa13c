#include "blocking/hiding/HidingCompiler.h"

#include "blocking/HostHashes.h"

#include <algorithm>
#include <tuple>

namespace tessa {

TokenHash TokenOfKey(std::string_view key) {
    // As the script in the pages does it, see element-hiding.js.
    TokenHash hash = 0x811C9DC5U;
    for (const char each : key) hash = (hash ^ static_cast<unsigned char>(each)) * 0x01000193U;
    return hash == kNoToken ? 1 : hash;
}

std::uint32_t HidingCompiler::NumberOf(const std::string& selector) {
    const auto [at, fresh] = m_numbers.emplace(selector, static_cast<std::uint32_t>(m_selectors.size()));
    if (fresh) {
        m_selectors.push_back(
            {static_cast<std::uint32_t>(m_strings.size()), static_cast<std::uint32_t>(selector.size())});
        m_strings += selector;
    }
    return at->second;
}

void HidingCompiler::AddSites(const std::vector<std::string>& domains, SiteHidingKind kind, std::uint32_t selector) {
    const auto rule = static_cast<std::uint32_t>(m_count) << 2U;
    for (const std::string& each : domains)
        m_sites.push_back({HashOfDomain(each), rule | static_cast<std::uint32_t>(kind), selector});
}

bool HidingCompiler::KeepPart(const std::string& key) {
    if (m_knownParts.contains(key)) return true;
    if (m_parts.size() >= kMostParts) return false;
    m_knownParts.insert(key);
    m_parts.push_back({static_cast<std::uint32_t>(m_strings.size()), static_cast<std::uint32_t>(key.size())});
    m_strings += key;
    return true;
}

void HidingCompiler::AddGeneric(const std::string& text, std::uint32_t selector) {
    if (!m_generic.insert(selector).second) return;
    const std::string key = KeyOfSelector(text);
    if (key.empty() || (IsPartKey(key) && !KeepPart(key))) return m_always.push_back(selector);
    m_keyed.emplace_back(TokenOfKey(key), selector);
    if (!IsPartKey(key)) m_keyStarts.insert(TokenOfKey(StartOfKey(key)));
}

void HidingCompiler::Add(const HidingRule& rule) {
    const std::uint32_t selector = NumberOf(rule.Selector);
    const bool generic = rule.Domains.empty();
    AddSites(rule.Domains, rule.Exception ? SiteHidingKind::Show : SiteHidingKind::Hide, selector);
    if (!rule.Exception || !generic)
        AddSites(rule.NotDomains, generic ? SiteHidingKind::NotGeneric : SiteHidingKind::Not, selector);
    if (generic && rule.Exception)
        m_never.insert(selector);
    else if (generic)
        AddGeneric(rule.Selector, selector);
    ++m_count;
}

void HidingCompiler::WriteTo(RuleImageWriter& writer) {
    const auto isNever = [this](std::uint32_t selector) { return m_never.contains(selector); };
    std::erase_if(m_keyed, [&](const TokenEntry& each) { return isNever(each.second); });
    std::erase_if(m_always, isNever);
    std::erase_if(m_sites, [&](const SiteHiding& each) { return isNever(each.Selector); });
    std::ranges::sort(m_sites, {}, [](const SiteHiding& each) { return std::tuple(each.Domain, each.RuleAndKind); });
    const TokenArrays keyed = MakeTokenArrays(m_keyed);
    writer.Set(ImagePart::Selectors, std::span<const PackedText>(m_selectors));
    writer.Set(ImagePart::SiteHiding, std::span<const SiteHiding>(m_sites));
    writer.Set(ImagePart::KeySlots, std::span<const std::uint64_t>(keyed.Slots));
    writer.Set(ImagePart::KeyLists, std::span<const std::uint32_t>(keyed.Lists));
    writer.Set(ImagePart::KeyParts, std::span<const PackedText>(m_parts));
    const std::vector<TokenHash> starts(m_keyStarts.begin(), m_keyStarts.end());
    writer.Set(ImagePart::KeyStarts, std::span<const TokenHash>(starts));
    writer.Set(ImagePart::AlwaysHidden, std::span<const std::uint32_t>(m_always));
}

} // namespace tessa
