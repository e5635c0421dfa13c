#include "blocking/hiding/HidingRule.h"

#include "blocking/RuleText.h"

#include <algorithm>
#include <array>

namespace tessa {

using namespace ruletext;

namespace {

constexpr std::size_t kLongestSelector = 4000, kLongestPart = 100;

// What looks like a selector, but is done by scripts that other programs bring.
constexpr std::array<std::string_view, 25> kNoSelectors{":-abp-",
                                                        ":style(",
                                                        ":remove(",
                                                        ":has-text(",
                                                        ":contains(",
                                                        ":xpath(",
                                                        ":matches-css",
                                                        ":upward(",
                                                        ":min-text-",
                                                        ":watch-attr",
                                                        ":nth-ancestor(",
                                                        ":others(",
                                                        ":matches-path",
                                                        ":matches-attr",
                                                        ":matches-media(",
                                                        ":matches-prop",
                                                        ":if(",
                                                        ":if-not(",
                                                        ":remove-attr",
                                                        ":remove-class",
                                                        ":spath(",
                                                        "+js(",
                                                        "^",
                                                        "script:inject",
                                                        ":shadow("};

bool IsNameLetter(char each) {
    return IsSmallLetter(Small(each)) || IsDigit(each) || each == '-' || each == '_' ||
           static_cast<unsigned char>(each) >= 0x80;
}

// The letters of what stands before a sign: domains and what goes with them. Other lines have a "##" in a pattern.
bool IsOfDomains(char each) {
    return IsNameLetter(each) || std::string_view(".,~* []:").find(each) != std::string_view::npos;
}

bool IsDoneByScripts(std::string_view selector) {
    return std::ranges::any_of(kNoSelectors, [&](std::string_view each) {
        return each.starts_with(':') || each.starts_with("script") ? selector.find(each) != std::string_view::npos
                                                                   : selector.starts_with(each);
    });
}

bool ReadHidingDomains(HidingRule& rule, std::string_view text) {
    while (!text.empty()) {
        std::string_view each = Trimmed(TakePart(text, ','));
        const bool isOther = each.starts_with('~');
        if (isOther) each.remove_prefix(1);
        if (each == "*" && !isOther) continue;
        const std::string domain = DomainOf(each);
        if (domain.empty()) return false;
        (isOther ? rule.NotDomains : rule.Domains).push_back(domain);
    }
    return true;
}

bool SelectsWholePages(std::string_view selector) {
    constexpr std::array<std::string_view, 8> kWhole{"html",      "body",   ":root",    "html body",
                                                     "html>body", "body *", "body > *", "html > body"};
    return std::ranges::find(kWhole, InSmall(selector)) != kWhole.end();
}

/// Looks at a selector from its beginning to its end: what brackets and quotes are open.
class SelectorReading {
public:
    /// False when that may not stand there.
    bool Take(char each) {
        if (m_escaped) return m_escaped = false, !IsBlank(each) || each == ' ';
        if (each == '\\') return m_escaped = true;
        if (m_quote != 0) return m_quote = each == m_quote ? char{} : m_quote, true;
        if (each == '"' || each == '\'') return m_quote = each, true;
        if (each == '(' || each == '[') return m_open += each == '(' ? ')' : ']', true;
        if (each == ')' || each == ']') {
            if (!m_open.ends_with(each)) return false;
            m_open.pop_back();
            return true;
        }
        return each != '{' && each != '}' && each != ';' && each != '@' && each != '<';
    }
    [[nodiscard]] bool InsideNothing() const { return m_quote == 0 && m_open.empty() && !m_escaped; }

private:
    std::string m_open; ///< what closes the brackets
    char m_quote = 0;
    bool m_escaped = false;
};

bool IsPlainValue(std::string_view value) {
    return value.size() >= kKeyStep && value.size() <= kLongestPart && std::ranges::all_of(value, [](char each) {
               return each > ' ' && each < 0x7F && each != '\\' && each != '@';
           });
}

// Of the brackets that the text begins with, as in KeyOfSelector.
std::string KeyOfAttribute(std::string_view tag, std::string_view text) {
    const std::size_t sign = text.find_first_of("=]");
    if (sign == std::string_view::npos || sign < 2 || text[sign] == ']') return {};
    const bool plain = IsNameLetter(text[sign - 1]);
    const char kind = plain ? '^' : text[sign - 1];
    const std::string_view name = text.substr(1, sign - (plain ? 1 : 2));
    if (name != "class" && name != "id" && (name != "href" || tag != "a")) return {};
    std::string_view value = text.substr(sign + 1);
    const char quote = value.empty() ? ' ' : value.front();
    const std::size_t end = value.find(quote, 1);
    if ((quote != '"' && quote != '\'') || end == std::string_view::npos || !value.substr(end + 1).starts_with(']'))
        return {};
    value = value.substr(1, end - 1);
    if (!IsPlainValue(value)) return {};
    if (kind == '^') value = value.substr(0, std::min(value.size(), kLongestStart) / kKeyStep * kKeyStep);
    if (kind == '^') return std::string(name) + '^' + std::string(value);
    return kind == '*' || kind == '$' ? std::string(name) + '*' + std::string(value) : std::string();
}

} // namespace

HidingSign FindHidingSign(std::string_view line) {
    constexpr std::array<std::string_view, 10> kSigns{"##",   "#@#",  "#?#",   "#@?#", "#$#",
                                                      "#@$#", "#$?#", "#@$?#", "#%#",  "#@%#"};
    const std::size_t at = line.find('#');
    if (at == std::string_view::npos || !std::ranges::all_of(line.substr(0, at), IsOfDomains)) return {};
    for (const std::string_view each : kSigns)
        if (line.substr(at).starts_with(each)) return {at, line.substr(at, each.size())};
    return {};
}

HidingRuleRead ReadHidingRule(std::string_view line, const HidingSign& sign) {
    HidingRuleRead read;
    HidingRule& rule = read.Rule;
    const std::string_view selector = Trimmed(line.substr(sign.At + sign.Sign.size()));
    rule.Exception = sign.Sign == "#@#";
    rule.Selector = selector;
    if (sign.Sign != "##" && sign.Sign != "#@#")
        read.Trouble = RuleTrouble::UnknownHiding;
    else if (IsDoneByScripts(selector))
        read.Trouble = RuleTrouble::UnknownHiding;
    else if (selector.size() > kLongestSelector)
        read.Trouble = RuleTrouble::TooLong;
    else if (!IsSafeSelector(selector))
        read.Trouble = RuleTrouble::BadSelector;
    else if (!ReadHidingDomains(rule, line.substr(0, sign.At)))
        read.Trouble = RuleTrouble::BadDomain;
    else if (rule.Domains.empty() && !rule.Exception && SelectsWholePages(selector))
        read.Trouble = RuleTrouble::MatchesEverything;
    return read;
}

bool IsSafeSelector(std::string_view selector) {
    SelectorReading reading;
    for (const char each : selector)
        if (static_cast<unsigned char>(each) < ' ' || !reading.Take(each)) return false;
    // A comment would take away what follows, and a list that ends in a comma is none.
    return !selector.empty() && reading.InsideNothing() && selector.find("/*") == std::string_view::npos &&
           !selector.ends_with(',') && !selector.starts_with(',') && selector != "*";
}

std::string KeyOfSelector(std::string_view selector) {
    SelectorReading reading;
    // Of a list each part would need one of its own.
    std::string key, ofAttribute;
    std::size_t compound = 0; // where what stands before it begins
    for (std::size_t at = 0; at < selector.size(); ++at) {
        const char each = selector[at];
        const bool outside = reading.InsideNothing();
        if (!reading.Take(each)) return {};
        if (outside && (each == ',' || each == '\\')) return {};
        if (outside && each == '[' && ofAttribute.empty())
            ofAttribute = KeyOfAttribute(selector.substr(compound, at - compound), selector.substr(at));
        if (outside && !IsNameLetter(each)) compound = at + 1;
        if (!outside || !key.empty() || (each != '.' && each != '#')) continue;
        std::size_t end = at + 1;
        while (end < selector.size() && IsNameLetter(selector[end])) ++end;
        // An escaped letter would have to be read as the engine reads it.
        if (end > at + 1 && (end == selector.size() || selector[end] != '\\')) key = selector.substr(at, end - at);
    }
    return key.empty() ? ofAttribute : key;
}

std::string_view StartOfKey(std::string_view key) {
    if (IsPartKey(key)) return {};
    const bool ofName = key.starts_with('.') || key.starts_with('#');
    return key.substr(0, (ofName ? 1 : key.find('^') + 1) + kKeyStep);
}

bool IsPartKey(std::string_view key) {
    const std::size_t sign = key.find_first_of("^*");
    return sign != std::string_view::npos && key[sign] == '*' && key.front() != '.' && key.front() != '#';
}

} // namespace tessa
