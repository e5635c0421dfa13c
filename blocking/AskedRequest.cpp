#include "blocking/AskedRequest.h"

#include "blocking/RuleText.h"

#include <algorithm>
#include <array>

namespace tessa {

void AskedRequest::Ask(std::string_view address) {
    m_asItStands = address;
    m_small.resize(address.size());
    std::ranges::transform(address, m_small.begin(), ruletext::Small);
    m_matched = MatchedAddressOf(m_small);
    m_fours.Read(m_small);
    ReadTokens();
}

void AskedRequest::ReadTokens() {
    constexpr std::size_t kSeen = 256; // a place for each word that was seen, by its last bits
    std::array<TokenHash, kSeen> seen{};
    m_tokens.clear();
    for (TokenReader reader(m_small); reader.Next();) {
        TokenHash& last = seen[reader.Hash() % kSeen];
        if (last != reader.Hash()) m_tokens.push_back(reader.Hash());
        last = reader.Hash();
    }
}

} // namespace tessa
