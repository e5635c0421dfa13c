#pragma once
#include "blocking/NetworkRule.h"
#include "blocking/RuleTrouble.h"
#include "blocking/hiding/HidingRule.h"

namespace tessa {

/// What a line of a list is.
enum class LineKind { Nothing, Network, Hiding, Hosts, Unknown };

/// A line read.
struct RuleLine {
    LineKind Kind = LineKind::Nothing;
    RuleTrouble Trouble = RuleTrouble::None; ///< of `Unknown`
    NetworkRule Network;
    HidingRule Hiding;
    std::vector<std::string> Hosts;
};

/// Reads a line, in UTF-8, of any of the kinds that lists are made of. Blank lines, comments and what a hosts file says
/// of this computer itself are `Nothing`.
[[nodiscard]] RuleLine ReadRuleLine(std::string_view line);

/// What was perhaps cut, without the line that was cut, which may stop far more than it was meant to. One line alone is
/// whole.
[[nodiscard]] std::string_view UncutLines(std::string_view list);

/// The lines of a list one after the other, without those under a condition that no one here fulfils.
class ListLines {
public:
    explicit ListLines(std::string_view bytes);

    /// The next line without blanks around it; nothing at the end.
    [[nodiscard]] bool Next(std::string_view& line);
    /// Whether the line stands under such a condition.
    [[nodiscard]] bool IsLeftOut() const { return m_leftOut > 0; }

private:
    void FollowCondition(std::string_view line);

    std::string_view m_rest;
    int m_depth = 0;   ///< conditions that are open
    int m_leftOut = 0; ///< the depth of the outermost one that is not fulfilled; 0 for none
};

} // namespace tessa
