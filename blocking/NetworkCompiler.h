#pragma once
#include "blocking/AddressFours.h"
#include "blocking/NetworkRule.h"
#include "blocking/RuleImage.h"
#include "blocking/RuleTokens.h"
#include "blocking/RuleTrouble.h"
#include "blocking/TokenTable.h"

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tessa {

/// Gathers network rules and puts each under the word that the fewest other rules have.
class NetworkCompiler {
public:
    /// The most rules that each request is held against, because nothing else can be told of them. The most regular
    /// expressions among them; the most expressions in all; the most rules under one word.
    static constexpr std::size_t kMostForAll = 1000, kMostExpressionsForAll = 100, kMostExpressions = 3000,
                                 kMostUnderAWord = 4000;

    /// The strings of the image, which must outlive this.
    explicit NetworkCompiler(std::string& strings) : m_strings(strings) {}

    /// The line is what stands in the list, and that is its number. Says why a rule will never be used.
    RuleTrouble Add(const NetworkRule& rule, std::string_view line, std::uint32_t list);
    [[nodiscard]] std::size_t Count() const { return m_rules.size(); }
    void WriteTo(RuleImageWriter& writer);

private:
    /// What is kept of a rule until all are there.
    struct Keys {
        std::uint64_t Identity = 0;
        std::uint32_t FirstToken = 0, Tokens = 0;
        bool Important = false, RedirectOnly = false;
    };
    using Entries = std::array<std::vector<TokenEntry>, static_cast<std::size_t>(RuleIndex::Count)>;

    [[nodiscard]] RuleTrouble CheckSpeed(const NetworkRule& rule, const std::vector<RuleToken>& tokens);
    [[nodiscard]] PackedText Keep(std::string_view text);
    /// The place in the words of the domains, in their order.
    [[nodiscard]] std::uint32_t WriteDomains(const std::vector<std::string>& those,
                                             const std::vector<std::string>& others);
    [[nodiscard]] PackedRule Packed(const NetworkRule& rule, std::string_view line, std::uint32_t list);
    /// The words under which the rule is kept: one, or one for each site that it is for.
    [[nodiscard]] std::vector<TokenHash> KeysOf(std::size_t rule) const;
    void AddTo(Entries& entries, std::size_t rule) const;
    /// What of the pattern each address holds that it fits.
    [[nodiscard]] std::string LettersOf(const PackedRule& rule) const;
    [[nodiscard]] std::vector<PackedFours> FoursOfRules() const;

    std::string& m_strings;
    std::vector<PackedRule> m_rules;
    std::vector<Keys> m_keys;
    std::vector<RuleToken> m_tokens;
    std::unordered_map<TokenHash, std::uint32_t> m_tokenCounts;
    std::unordered_set<std::uint64_t> m_identities, m_takenBack;
    std::vector<std::uint64_t> m_words{0};
    std::size_t m_forAll = 0, m_expressionsForAll = 0, m_expressions = 0;
};

} // namespace tessa
