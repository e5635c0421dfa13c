#pragma once
#include "blocking/RuleTrouble.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// What a rule hides on pages, or takes back that another hides.
struct HidingRule {
    std::string Selector;
    std::vector<std::string> Domains, NotDomains; ///< of pages; without any it is for all
    bool Exception = false;
};

struct HidingRuleRead {
    HidingRule Rule;
    RuleTrouble Trouble = RuleTrouble::None;
};

/// Where the "##" of a hiding rule stands, or a sign of its kind; `npos` in any other line.
struct HidingSign {
    std::size_t At = std::string_view::npos;
    std::string_view Sign;
};
[[nodiscard]] HidingSign FindHidingSign(std::string_view line);

/// Reads a line in which that sign stands.
[[nodiscard]] HidingRuleRead ReadHidingRule(std::string_view line, const HidingSign& sign);

/// Whether the text can stand before a "{" of a style sheet without any effect on what else stands in it.
[[nodiscard]] bool IsSafeSelector(std::string_view selector);

/// What a page must hold before the selector selects anything on it. A class or an id: ".name" or "#name". Else how the
/// attribute "class", "id" or, of a link, "href" begins, or a part of it: "href^http://ads.", "id*-advert-". Such a
/// beginning is as long as a multiple of `kKeyStep`, and at most `kLongestStart`. Empty when there is none.
[[nodiscard]] std::string KeyOfSelector(std::string_view selector);
inline constexpr std::size_t kKeyStep = 4, kLongestStart = 20;

/// The first letters of such a key, by which most names of pages are told from all keys: of a name its sign and as many
/// bytes as `kKeyStep`, of a beginning its first step. Empty for the key of a part.
[[nodiscard]] std::string_view StartOfKey(std::string_view key);

/// Whether that is the key of a part.
[[nodiscard]] bool IsPartKey(std::string_view key);

} // namespace tessa
