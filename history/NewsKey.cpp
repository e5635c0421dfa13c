#include "history/NewsKey.h"

#include "history/NewsWords.h"
#include "history/SearchText.h"

#include <algorithm>
#include <span>
#include <vector>

namespace tessa {

namespace {

constexpr std::size_t kLongestSign = 120;

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

/// What a word of a passage is.
struct Token {
    Text word; ///< folded, without punctuation at its ends
    bool number = false;
    bool worth = false; ///< of a price, a temperature, a share: it says something by itself
    bool dropped = false;
};

bool IsIn(std::span<const TextView> words, TextView word) {
    if (std::ranges::find(words, word) != words.end()) return true;
    return word.size() > 3 && word.ends_with(u's') &&
           std::ranges::find(words, word.substr(0, word.size() - 1)) != words.end();
}

bool IsEdge(char16_t unit) {
    return TextView(u".,:;!?()[]{}<>\"'|*~\u00b7\u2022\u2013\u2014\u2026\u201c\u201d\u2018\u2019\u00ab\u00bb"
                    u"\u3001\u3002\u300c\u300d\uff08\uff09\uff1a\uff0c")
               .find(unit) != TextView::npos;
}

// Digits with what groups them, and a "k" or "m" for thousands and millions; "12th" too.
bool IsNumber(TextView word) {
    for (const TextView ending : {u"st", u"nd", u"rd", u"th", u"k", u"m", u"mio", u"mrd"})
        if (word.ends_with(ending) && IsNumber(word.substr(0, word.size() - ending.size()))) return true;
    return !word.empty() && IsDigit(word.front()) && std::ranges::all_of(word, [](char16_t unit) {
        return IsDigit(unit) || TextView(u".,'\u00a0\u202f").find(unit) != TextView::npos;
    });
}

// Numbers with that between them; how many digits each has.
std::vector<std::size_t> PartsBetween(TextView word, char16_t between) {
    std::vector<std::size_t> parts{0};
    for (const char16_t unit : word) {
        if (unit == between)
            parts.push_back(0);
        else if (IsDigit(unit))
            ++parts.back();
        else
            return {};
    }
    return parts;
}

bool AllWithin(const std::vector<std::size_t>& parts, std::size_t least, std::size_t most) {
    return std::ranges::all_of(parts, [=](std::size_t digits) { return digits >= least && digits <= most; });
}

// 9:05, 09:05:33, 9h05; also with "am" right behind.
bool IsClock(TextView word) {
    for (const TextView ending : {u"am", u"pm", u"h"})
        if (word.ends_with(ending) && word.size() > ending.size() + 2) word.remove_suffix(ending.size());
    for (const char16_t between : {u':', u'h'}) {
        const auto parts = PartsBetween(word, between);
        if (parts.size() >= 2 && parts.size() <= 3 && AllWithin(parts, 1, 2) && parts[1] == 2) return true;
    }
    return false;
}

// 2026-11-23, 11/23/26, 23.11.2026, and with a time behind a "T". A version of a program has no year at its end.
bool IsDate(TextView word) {
    if (const std::size_t time = word.find(u't'); time != TextView::npos && time >= 8) word = word.substr(0, time);
    for (const char16_t between : {u'-', u'/', u'.'}) {
        const auto parts = PartsBetween(word, between);
        if (parts.size() != 3 || !AllWithin(parts, 1, 4) || parts[1] > 2) continue;
        if (parts[0] == 4 && between != u'.') return parts[2] <= 2;
        if (parts[0] <= 2 && (parts[2] == 4 || (parts[2] == 2 && between == u'/'))) return true;
    }
    return false;
}

constexpr TextView kTimeCharacters = u"\u5e74\u6708\u65e5\u6642\u65f6\u5206\u79d2\u70b9\u9031\u5468\u524d\u9593\u95f4";

// Without what Chinese and Japanese write of times: numbers with the character of a year, a day, a minute behind them.
Text WithoutEastAsianTimes(TextView word) {
    Text left;
    bool dropped = false;
    for (std::size_t at = 0; at < word.size();) {
        std::size_t end = at;
        while (end < word.size() && IsDigit(word[end])) ++end;
        const bool unit = end < word.size() && kTimeCharacters.find(word[end]) != TextView::npos;
        if (unit && (end > at || dropped)) {
            at = end + 1;
            dropped = true;
            continue;
        }
        end = std::max(end, at + 1);
        left += word.substr(at, end - at);
        at = end;
        dropped = false;
    }
    return left;
}

bool HasWorth(TextView word) {
    return word.find_first_of(u"$\u00a2\u00a3\u00a4\u00a5\u20ac\u20b9\u20bd\u20a9\uffe5%\u2030\u00b0\u2103\u2109+") !=
               TextView::npos ||
           word == u"eur" || word == u"usd" || word == u"gbp" || word == u"chf";
}

Token TokenOf(TextView written) {
    Token token;
    const TextView trimmed = TrimmedOf(written, IsEdge);
    token.word = WithoutEastAsianTimes(SearchText::Folded(trimmed));
    token.number = IsNumber(token.word);
    token.worth = HasWorth(token.word);
    const bool sign = !token.worth && std::ranges::none_of(token.word, SearchText::IsOfWord);
    token.dropped = sign || IsClock(token.word) || IsDate(token.word);
    return token;
}

std::vector<Token> TokensOf(TextView passage) {
    std::vector<Token> tokens;
    while (!passage.empty()) {
        const std::size_t end = passage.find_first_of(u" \t\u00a0\u202f\u3000");
        Token token = TokenOf(passage.substr(0, end));
        if (!token.word.empty()) tokens.push_back(std::move(token));
        if (end == TextView::npos) break;
        passage.remove_prefix(end + 1);
    }
    return tokens;
}

// Letters and digits in one word: "5m", "12h", "3min".
bool IsSpanInOne(TextView word) {
    const auto letter = std::ranges::find_if_not(word, IsDigit);
    return letter != word.begin() && letter != word.end() &&
           IsIn(NewsWords::kSpans, word.substr(static_cast<std::size_t>(letter - word.begin())));
}

// A number beside one of those words says nothing, and neither does the word.
void DropDates(std::vector<Token>& tokens) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool month = IsIn(NewsWords::kMonths, tokens[i].word);
        if (!month && !IsIn(NewsWords::kDays, tokens[i].word) && !IsIn(NewsWords::kMoments, tokens[i].word)) continue;
        // "May" and "March" begin sentences, too: a month stands beside a number.
        const bool before = i > 0 && tokens[i - 1].number, after = i + 1 < tokens.size() && tokens[i + 1].number;
        if (month && !before && !after) continue;
        tokens[i].dropped = true;
        if (!month) continue;
        if (before) tokens[i - 1].dropped = true;
        for (std::size_t j = i + 1; j < tokens.size() && j < i + 3 && tokens[j].number; ++j) tokens[j].dropped = true;
    }
}

bool SaysSince(const std::vector<Token>& tokens) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (IsIn(NewsWords::kSince, tokens[i].word)) return true;
        if (i >= 2 && IsIn(NewsWords::kSince, tokens[i - 2].word + u' ' + tokens[i - 1].word + u' ' + tokens[i].word))
            return true;
    }
    return false;
}

void DropSpans(std::vector<Token>& tokens) {
    const auto isAgo = [](const Token& each) { return IsIn(NewsWords::kAgo, each.word); };
    const bool ago = std::ranges::any_of(tokens, isAgo) || SaysSince(tokens);
    const bool alone = tokens.size() == 1 && IsSpanInOne(tokens.front().word);
    if (!ago && !alone) return;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool span = IsIn(NewsWords::kSpans, tokens[i].word);
        if (span && i > 0 && tokens[i - 1].number) tokens[i - 1].dropped = true;
        if (span || isAgo(tokens[i]) || IsSpanInOne(tokens[i].word)) tokens[i].dropped = true;
    }
}

void DropCounts(std::vector<Token>& tokens) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!IsIn(NewsWords::kCounted, tokens[i].word)) continue;
        if (i > 0 && tokens[i - 1].number) tokens[i - 1].dropped = true;
        // "Visitors now: 18" too.
        for (std::size_t j = i + 1; j < tokens.size() && j < i + 3; ++j) tokens[j].dropped |= tokens[j].number;
        // "1 comment" becomes "2 comments".
        if (tokens[i].word.ends_with(u's')) tokens[i].word.pop_back();
    }
}

bool SaysSomething(const Token& token) {
    if (token.dropped) return false;
    if (token.worth) return true;
    return !token.number &&
           std::ranges::any_of(token.word, [](char16_t unit) { return !IsDigit(unit) && SearchText::IsOfWord(unit); });
}

} // namespace

namespace NewsKey {

Text MaskedOf(TextView passage) {
    std::vector<Token> tokens = TokensOf(passage);
    DropDates(tokens);
    DropSpans(tokens);
    DropCounts(tokens);
    // What is left of a clock or a counter is a bare number, or nothing.
    if (std::ranges::none_of(tokens, SaysSomething)) return {};
    Text masked;
    for (const Token& each : tokens) {
        if (each.dropped) continue;
        if (!masked.empty()) masked += u' ';
        masked += each.word;
    }
    return masked;
}

std::uint64_t Of(TextView passage) {
    const Text masked = MaskedOf(passage);
    if (masked.empty()) return 0;
    // FNV-1a, by bytes.
    std::uint64_t key = 0xcbf29ce484222325U;
    for (const char16_t unit : masked)
        for (const unsigned byte : {unit & 0xFFU, unsigned{unit} >> 8}) key = (key ^ byte) * 0x100000001b3U;
    return key == 0 ? 1 : key;
}

bool SaysAdvertisement(TextView passage) {
    if (passage.size() > kLongestSign) return false;
    const auto tokens = TokensOf(passage);
    const auto first = std::ranges::find(tokens, false, &Token::dropped);
    return first != tokens.end() && IsIn(NewsWords::kAdvertisements, first->word);
}

} // namespace NewsKey

} // namespace tessa
