#pragma once
#include "blocking/AddressFours.h"
#include "blocking/PatternMatch.h"
#include "blocking/RequestTypes.h"
#include "blocking/RuleTokens.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// A request as it is held against rules. Used again and again, it takes no memory anew.
class AskedRequest {
public:
    /// From now on it is for that address, which must stay.
    void Ask(std::string_view address);

    [[nodiscard]] std::string_view AsItStands() const { return m_asItStands; }
    /// In small letters.
    [[nodiscard]] const MatchedAddress& Matched() const { return m_matched; }
    [[nodiscard]] const AddressFours& Fours() const { return m_fours; }
    /// The words of the address, each once.
    [[nodiscard]] std::span<const TokenHash> Tokens() const { return m_tokens; }

    RequestTypes Types = 0;
    bool IsThirdParty = false;

private:
    void ReadTokens();

    std::string_view m_asItStands;
    std::string m_small;
    MatchedAddress m_matched; ///< in `m_small`
    AddressFours m_fours;
    std::vector<TokenHash> m_tokens;
};

} // namespace tessa
