#include "blocking/RuleTokens.h"

#include "blocking/NetworkRule.h"
#include "blocking/RuleText.h"

#include <algorithm>
#include <array>
#include <string>

namespace tessa {

using namespace ruletext;

namespace {

// Words that many addresses hold; a rule is kept under another one where it has any. In their order.
constexpr std::array<std::string_view, 84> kCommonWords{
    "%2f",     "%3a",   "10",       "100",     "a",      "ad",   "ads",    "ajax",     "amazon", "analytics",
    "api",     "app",   "assets",   "async",   "b",      "blog", "c",      "callback", "cdn",    "co",
    "collect", "com",   "common",   "content", "css",    "d",    "data",   "de",       "dist",   "e",
    "en",      "event", "facebook", "files",   "fonts",  "gif",  "google", "height",   "home",   "htm",
    "html",    "http",  "https",    "i",       "icon",   "id",   "image",  "images",   "img",    "index",
    "info",    "ip",    "io",       "jpg",     "jquery", "js",   "json",   "lib",      "logo",   "main",
    "media",   "min",   "name",     "net",     "news",   "org",  "p",      "page",     "php",    "png",
    "ru",      "s",     "script",   "scripts", "site",   "src",  "static", "t",        "type",   "u",
    "url",     "v1",    "version",  "www"};

RuleToken TokenAt(std::string_view text, const TokenReader& reader) {
    const std::string_view word = text.substr(reader.Begin(), reader.End() - reader.Begin());
    return {reader.Hash(), word.size() == 1 || std::ranges::binary_search(kCommonWords, word)};
}

std::vector<RuleToken> TokensOfPattern(const NetworkRule& rule) {
    const std::string text = rule.MatchCase ? InSmall(rule.Pattern) : rule.Pattern;
    std::vector<RuleToken> tokens;
    for (TokenReader reader(text); reader.Next();) {
        const bool bounded = reader.Begin() > 0 ? text[reader.Begin() - 1] != '*' : rule.Anchor != RuleAnchor::Anywhere;
        const bool ended = reader.End() < text.size() ? text[reader.End()] != '*' : rule.AtEnd;
        if (bounded && ended) tokens.push_back(TokenAt(text, reader));
    }
    return tokens;
}

/// Writes down what a regular expression says letter by letter, with a "*" for whatever else it may say there.
class PlainParts {
public:
    explicit PlainParts(std::string_view expression) : m_rest(expression) {}

    /// Empty when there are other ways around it.
    std::string Whole() {
        while (!m_rest.empty() && m_sure) Take();
        return m_sure ? m_plain : std::string();
    }

private:
    void Take() {
        const char each = m_rest.front();
        m_rest.remove_prefix(1);
        if (each == '|')
            m_sure = false;
        else if (each == '[')
            Unknown(), SkipClass();
        else if (each == '(')
            Unknown(), SkipGroup();
        else if (each == '?' || each == '*' || each == '{')
            ForgetLast(each);
        else if (each == '+' || each == '.' || each == '^' || each == '$')
            Unknown();
        else if (each != '\\')
            m_plain += Small(each);
        else
            TakeEscaped();
    }
    void Unknown() { m_plain += '*'; }
    // What stood before it may be missing, or stand there more often.
    void ForgetLast(char sign) {
        if (!m_plain.empty()) m_plain.back() = '*';
        Unknown();
        if (sign == '{') m_rest.remove_prefix(std::min(m_rest.size(), m_rest.find('}') + 1));
    }
    void TakeEscaped() {
        const char each = m_rest.empty() ? ' ' : m_rest.front();
        if (!m_rest.empty()) m_rest.remove_prefix(1);
        const bool isLetter = IsSmallLetter(Small(each)) || IsDigit(each);
        isLetter || IsBlank(each) ? Unknown() : void(m_plain += each);
        // As "\x41", which is longer.
        if (each == 'x' || each == 'u' || each == 'p' || each == 'P' || each == 'Q' || each == 'c') m_sure = false;
    }
    void SkipClass() {
        if (m_rest.starts_with('^')) m_rest.remove_prefix(1);
        for (bool first = true; !m_rest.empty(); first = false) {
            const char each = m_rest.front();
            const bool escaped = each == '\\';
            m_rest.remove_prefix(std::min<std::size_t>(m_rest.size(), escaped ? 2 : 1));
            if (each == ']' && !first) return;
        }
    }
    void SkipGroup() {
        // Ways of reading that hold for all that follows.
        if (m_rest.starts_with("?i") || m_rest.starts_with("?-") || m_rest.starts_with("?s") ||
            m_rest.starts_with("?m"))
            m_sure = false;
        for (int depth = 1; depth > 0 && !m_rest.empty();) {
            const char each = m_rest.front();
            m_rest.remove_prefix(std::min<std::size_t>(m_rest.size(), each == '\\' ? 2 : 1));
            if (each == '[') SkipClass();
            depth += each == '(' ? 1 : each == ')' ? -1 : 0;
        }
    }

    std::string_view m_rest;
    std::string m_plain;
    bool m_sure = true;
};

std::vector<RuleToken> TokensOfExpression(std::string_view expression) {
    NetworkRule plain;
    plain.Pattern = PlainParts(expression).Whole();
    return TokensOfPattern(plain);
}

} // namespace

std::vector<RuleToken> TokensOf(const NetworkRule& rule) {
    return rule.IsExpression ? TokensOfExpression(rule.Pattern) : TokensOfPattern(rule);
}

} // namespace tessa
