#pragma once
// Words of letters and digits that an address must hold if a pattern is to match it. Rules are kept under them, so that
// a request is held against few rules.

#include <cstdint>
#include <string_view>
#include <vector>

namespace tessa {

struct NetworkRule;

/// The name of a word in the tables.
using TokenHash = std::uint32_t;

/// Not a word: rules that are tried for each request are kept under it.
inline constexpr TokenHash kNoToken = 0;

[[nodiscard]] constexpr bool IsTokenLetter(char each) {
    return (each >= 'a' && each <= 'z') || (each >= '0' && each <= '9') || each == '%';
}

/// The words of an address one after the other.
class TokenReader {
public:
    /// The text is in small letters.
    explicit TokenReader(std::string_view text) : m_text(text) {}

    /// Goes to the next word; false when there is none.
    [[nodiscard]] bool Next() {
        while (m_end < m_text.size() && !IsTokenLetter(m_text[m_end])) ++m_end;
        m_begin = m_end;
        std::uint32_t hash = 0x811C9DC5U;
        for (; m_end < m_text.size() && IsTokenLetter(m_text[m_end]); ++m_end)
            hash = (hash ^ static_cast<unsigned char>(m_text[m_end])) * 0x01000193U;
        m_hash = hash == kNoToken ? 1 : hash;
        return m_end > m_begin;
    }
    [[nodiscard]] TokenHash Hash() const { return m_hash; }
    [[nodiscard]] std::size_t Begin() const { return m_begin; }
    [[nodiscard]] std::size_t End() const { return m_end; }

private:
    std::string_view m_text;
    std::size_t m_begin = 0, m_end = 0;
    TokenHash m_hash = kNoToken;
};

/// The key of rules for pages of that domain, see `HostHashes`.
[[nodiscard]] constexpr TokenHash TokenOfDomain(std::uint64_t domain) {
    const auto folded = static_cast<TokenHash>((domain ^ (domain >> 32U)) * 0x9E3779B1U);
    return folded == kNoToken ? 1 : folded;
}

/// A word of a rule, and whether nearly each address holds it.
struct RuleToken {
    TokenHash Hash = kNoToken;
    bool Common = false;
};

/// The words that each address must hold whole if the rule is to match it.
[[nodiscard]] std::vector<RuleToken> TokensOf(const NetworkRule& rule);

} // namespace tessa
