#pragma once
#include "blocking/NetworkRule.h"
#include "blocking/RuleTrouble.h"

namespace tessa {

/// A rule, or why the line is none.
struct NetworkRuleRead {
    NetworkRule Rule;
    RuleTrouble Trouble = RuleTrouble::None;
};

/// Reads a line that is no hiding rule and no comment. The line is UTF-8, without blanks around it.
[[nodiscard]] NetworkRuleRead ReadNetworkRule(std::string_view line);

} // namespace tessa
