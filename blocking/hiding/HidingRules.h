#pragma once
#include "blocking/HostHashes.h"
#include "blocking/RuleImage.h"
#include "blocking/TokenTable.h"

#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tessa {

/// What is hidden on pages of one host.
struct SiteHidden {
    std::vector<std::string_view> Selectors;       ///< that rules name for the host
    std::unordered_set<std::uint32_t> ShownAnyway; ///< numbers of those for all pages that are not for this one
};

/// The hiding rules of an image, by host, and by the classes and ids that a page has.
class HidingRules {
public:
    explicit HidingRules(const RuleImage& image);

    /// What is hidden on pages of that host alone.
    [[nodiscard]] SiteHidden ForSite(const HostHashes& hosts) const;
    /// What is hidden on all pages but those that `site` leaves out, among what has those keys, see `KeyOfSelector`.
    [[nodiscard]] std::vector<std::string_view> ForKeys(const std::vector<std::string>& keys,
                                                        const SiteHidden& site) const;
    /// What is hidden on all pages and has no key.
    [[nodiscard]] std::vector<std::string_view> Always(const SiteHidden& site) const;

    /// The keys that are parts of attributes, see `KeyOfSelector`.
    [[nodiscard]] std::vector<std::string_view> Parts() const;
    /// All keys of what may be hidden, see `TokenOfKey`, and of all domains that rules name.
    [[nodiscard]] std::vector<TokenHash> Keys() const;
    /// How all these keys begin, see `StartOfKey`; those of parts left out.
    [[nodiscard]] std::span<const TokenHash> KeyStarts() const { return m_image.Part<TokenHash>(ImagePart::KeyStarts); }
    [[nodiscard]] std::vector<std::uint64_t> Domains() const;

private:
    [[nodiscard]] std::string_view SelectorAt(std::uint32_t number) const;

    RuleImage m_image;
    std::span<const PackedText> m_selectors;
    std::span<const SiteHiding> m_sites;
    std::span<const std::uint64_t> m_keySlots;
    TokenTable m_keyed;
};

/// A style sheet that hides what these selectors select. One that the engine does not understand costs the others
/// nothing.
[[nodiscard]] std::string HidingSheet(const std::vector<std::string_view>& selectors);

} // namespace tessa
