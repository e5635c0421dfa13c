#pragma once
#include "blocking/RuleTokens.h"

#include <span>
#include <utility>
#include <vector>

namespace tessa {

/// A key and what stands under it. Numbers under one key stand together.
using TokenEntry = std::pair<TokenHash, std::uint32_t>;

/// Two arrays that find the numbers under a key in one step or two. A slot holds a key and a place in the lists. There
/// stands how many numbers there are, and behind that the numbers.
struct TokenArrays {
    std::vector<std::uint64_t> Slots;
    std::vector<std::uint32_t> Lists;
};
[[nodiscard]] TokenArrays MakeTokenArrays(std::vector<TokenEntry> entries);

/// Finds in such arrays.
class TokenTable {
public:
    TokenTable() = default;
    TokenTable(std::span<const std::uint64_t> slots, std::span<const std::uint32_t> lists)
        : m_slots(slots), m_lists(lists) {}

    [[nodiscard]] bool IsEmpty() const { return m_slots.empty(); }
    /// What stands under the key.
    [[nodiscard]] std::span<const std::uint32_t> Find(TokenHash key) const;

private:
    std::span<const std::uint64_t> m_slots;
    std::span<const std::uint32_t> m_lists;
};

} // namespace tessa
