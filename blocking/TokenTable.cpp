#include "blocking/TokenTable.h"

#include <algorithm>
#include <bit>

namespace tessa {

namespace {

// A slot is the key and, behind it, the place of the list and one, so that none is zero.
constexpr std::uint64_t SlotOf(TokenHash key, std::size_t place) {
    return (static_cast<std::uint64_t>(key) << 32U) | (place + 1);
}

} // namespace

TokenArrays MakeTokenArrays(std::vector<TokenEntry> entries) {
    std::ranges::sort(entries);
    TokenArrays made;
    if (entries.empty()) return made;
    made.Slots.assign(std::bit_ceil(entries.size() * 2), 0);
    for (auto each = entries.begin(); each != entries.end();) {
        const auto end =
            std::find_if(each, entries.end(), [&](const TokenEntry& other) { return other.first != each->first; });
        std::size_t slot = each->first & (made.Slots.size() - 1);
        while (made.Slots[slot] != 0) slot = (slot + 1) & (made.Slots.size() - 1);
        made.Slots[slot] = SlotOf(each->first, made.Lists.size());
        made.Lists.push_back(static_cast<std::uint32_t>(end - each));
        for (; each != end; ++each) made.Lists.push_back(each->second);
    }
    return made;
}

std::span<const std::uint32_t> TokenTable::Find(TokenHash key) const {
    if (m_slots.empty()) return {};
    const std::size_t mask = m_slots.size() - 1; // as many as a power of two
    std::size_t slot = key & mask;
    for (std::size_t tried = 0; tried < m_slots.size() && m_slots[slot] != 0; ++tried, slot = (slot + 1) & mask) {
        if (m_slots[slot] >> 32U != key) continue;
        const std::size_t place = (m_slots[slot] & 0xFFFFFFFFU) - 1;
        if (place >= m_lists.size()) return {};
        return m_lists.subspan(place + 1, std::min<std::size_t>(m_lists[place], m_lists.size() - place - 1));
    }
    return {};
}

} // namespace tessa
