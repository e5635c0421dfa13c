#pragma once
#include "blocking/NetworkRule.h"
#include "blocking/RuleTrouble.h"

namespace tessa {

/// The two parts of a network rule.
struct RuleParts {
    std::string_view Pattern;
    std::string_view Options; ///< what stands behind the "$"; empty without one
};

/// Where the options of a rule begin. A "$" that no options follow is part of the pattern.
[[nodiscard]] RuleParts SplitRule(std::string_view line);

/// Reads the options into the rule.
[[nodiscard]] RuleTrouble ReadOptions(NetworkRule& rule, std::string_view options);

} // namespace tessa
