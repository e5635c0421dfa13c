#pragma once
#include "blocking/AskedRequest.h"
#include "blocking/EmptyResources.h"
#include "blocking/HostHashes.h"
#include "blocking/RuleImage.h"
#include "blocking/SiteDomains.h"
#include "blocking/TokenTable.h"
#include "blocking/libraries/SafeRegex.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tessa {

/// What a page is excepted from.
struct PageExceptions {
    bool Everything = false, Hiding = false, GenericHiding = false, SpecificHiding = false, GenericRules = false;
    bool operator==(const PageExceptions&) const = default;
};

/// A page, or a frame of it, that asks for something. Made once, it serves all its requests.
struct RulePage {
    std::string Site; ///< see `SiteDomainOf`
    HostHashes Hosts;
    PageExceptions Except;
};

/// What is to be seen of a page that rules may except from something: one of these, or nothing.
struct ExceptedPages {
    std::vector<std::uint64_t> Domains; ///< see `HashOfDomain`
    std::vector<std::string> Parts;     ///< of addresses in small letters: digits, letters, and "-./:_"
    bool Any = false;                   ///< each page may be excepted, whatever is to be seen
};

/// A rule of the set.
struct RuleFound {
    std::string_view Line; ///< as it stands in its list
    std::uint32_t List = 0;
};

/// What the rules say of a request.
struct RuleVerdict {
    bool Blocked = false;
    std::optional<RuleFound> By;        ///< what stops it, or would
    std::optional<RuleFound> Exception; ///< what lets it through in spite of that
    EmptyResource Instead = EmptyResource::None;
};

/// The network rules of an image. For one thread.
class RuleSet {
public:
    explicit RuleSet(RuleImage image);

    /// The most bytes of an address that count. With more, each request could cost a millisecond, and what rules look
    /// for stands before.
    static constexpr std::size_t kMostRead = AddressFours::kLongestRead;

    /// The page of that address, with what the rules except it from.
    [[nodiscard]] RulePage PageOf(std::string_view address) const;
    /// What the rules say of a request for that address.
    [[nodiscard]] RuleVerdict VerdictOn(std::string_view address, const RulePage& page, RequestType type) const;
    /// Which pages rules may except from something. All others need not be asked about.
    [[nodiscard]] ExceptedPages Excepted() const;
    [[nodiscard]] const RuleImage& Image() const { return m_image; }

private:
    static constexpr std::uint32_t kNone = 0xFFFFFFFFU;

    /// The first rule of that index that fits what is asked from that page; `kNone` without one.
    [[nodiscard]] std::uint32_t FindRule(RuleIndex index, const RulePage& page) const;
    [[nodiscard]] std::uint32_t FindAmong(std::span<const std::uint32_t> rules, const RulePage& page) const;
    [[nodiscard]] bool Fits(std::uint32_t number, const RulePage& page) const;
    [[nodiscard]] bool PatternOfFits(std::uint32_t number, const PackedRule& rule) const;
    [[nodiscard]] bool HoldsDomain(std::uint32_t place, const HostHashes& domains) const;
    [[nodiscard]] RuleFound Found(std::uint32_t number) const;

    void Ask(std::string_view address) const;
    [[nodiscard]] PageExceptions ExceptionsFor(const RulePage& page) const;

    RuleImage m_image;
    std::span<const PackedRule> m_rules;
    std::span<const PackedFours> m_fours;
    std::span<const std::uint64_t> m_words;
    std::array<TokenTable, static_cast<std::size_t>(RuleIndex::Count)> m_tables;
    /// Compiled when they are first needed.
    mutable std::unordered_map<std::uint32_t, SafeRegex> m_expressions;
    mutable SiteDomains m_sites;
    mutable AskedRequest m_asked; ///< what is being asked
    mutable bool m_isCut = false; ///< whether its address is longer
};

} // namespace tessa
