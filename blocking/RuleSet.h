#pragma once
#include "blocking/EmptyResources.h"
#include "blocking/HostHashes.h"
#include "blocking/PatternMatch.h"
#include "blocking/RuleImage.h"
#include "blocking/TokenTable.h"
#include "blocking/libraries/SafeRegex.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tessa {

/// A request as it is held against the rules. It stands on the texts that it was made of.
class RuleRequest {
public:
    /// The address of what is asked for, and of the page, or the frame, that asks. Of both the first `kMostRead` bytes
    /// count.
    RuleRequest(std::string_view address, std::string_view page, RequestType type);
    RuleRequest(const RuleRequest&) = delete;
    RuleRequest& operator=(const RuleRequest&) = delete;

    static constexpr std::size_t kMostRead = std::size_t{32} << 10;

    std::string_view AsItStands;
    std::string Small;       ///< in small letters
    MatchedAddress Matched;  ///< in `Small`
    HostHashes Hosts, Sites; ///< of what is asked for, and of the page
    bool IsThirdParty = false;
    RequestTypes Types;
    bool NoGeneric = false; ///< rules that name no sites do not count
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

/// What a page is excepted from.
struct PageExceptions {
    bool Everything = false, Hiding = false, GenericHiding = false, SpecificHiding = false, GenericRules = false;
    bool operator==(const PageExceptions&) const = default;
};

/// The network rules of an image. For one thread.
class RuleSet {
public:
    explicit RuleSet(RuleImage image);

    [[nodiscard]] RuleVerdict VerdictOn(const RuleRequest& request) const;
    /// What the rules except a page from, by its own address.
    [[nodiscard]] PageExceptions ExceptionsFor(std::string_view page) const;
    [[nodiscard]] const RuleImage& Image() const { return m_image; }

private:
    static constexpr std::uint32_t kNone = 0xFFFFFFFFU;

    /// The first rule of that index that fits; `kNone` without one.
    [[nodiscard]] std::uint32_t FindRule(RuleIndex index, const RuleRequest& request) const;
    [[nodiscard]] std::uint32_t FindAmong(std::span<const std::uint32_t> rules, const RuleRequest& request) const;
    [[nodiscard]] bool Fits(std::uint32_t number, const RuleRequest& request) const;
    [[nodiscard]] bool PatternOfFits(std::uint32_t number, const PackedRule& rule, const RuleRequest& request) const;
    [[nodiscard]] bool HoldsDomain(std::uint32_t place, const HostHashes& domains) const;
    [[nodiscard]] RuleFound Found(std::uint32_t number) const;

    RuleImage m_image;
    std::span<const PackedRule> m_rules;
    std::span<const std::uint64_t> m_words;
    std::array<TokenTable, static_cast<std::size_t>(RuleIndex::Count)> m_tables;
    /// Compiled when they are first needed.
    mutable std::unordered_map<std::uint32_t, SafeRegex> m_expressions;
};

} // namespace tessa
