#pragma once
#include "blocking/RuleImage.h"
#include "blocking/TokenTable.h"
#include "blocking/hiding/HidingRule.h"

#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tessa {

/// Gathers hiding rules: those for some sites by the site, those for all by a class or an id.
class HidingCompiler {
public:
    /// The strings of the image, which must outlive this.
    explicit HidingCompiler(std::string& strings) : m_strings(strings) {}

    /// The most parts of attributes that pages are asked about.
    static constexpr std::size_t kMostParts = 300;

    void Add(const HidingRule& rule);
    [[nodiscard]] std::size_t Count() const { return m_count; }
    void WriteTo(RuleImageWriter& writer);

private:
    [[nodiscard]] std::uint32_t NumberOf(const std::string& selector);
    void AddSites(const std::vector<std::string>& domains, SiteHidingKind kind, std::uint32_t selector);
    /// Whether pages can be asked about that part.
    [[nodiscard]] bool KeepPart(const std::string& key);
    void AddGeneric(const std::string& text, std::uint32_t selector);

    std::string& m_strings;
    std::size_t m_count = 0;
    std::unordered_map<std::string, std::uint32_t> m_numbers;
    std::vector<PackedText> m_selectors;
    std::vector<SiteHiding> m_sites;
    std::vector<TokenEntry> m_keyed;
    std::vector<std::uint32_t> m_always;
    std::vector<PackedText> m_parts;
    std::unordered_set<std::string> m_knownParts;
    std::set<TokenHash> m_keyStarts;
    std::unordered_set<std::uint32_t> m_generic, m_never;
};

/// The number of a key, see `KeyOfSelector`, under which selectors stand.
[[nodiscard]] TokenHash TokenOfKey(std::string_view key);

} // namespace tessa
