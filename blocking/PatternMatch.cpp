#include "blocking/PatternMatch.h"

#include "blocking/RuleText.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

constexpr std::array<bool, 256> SeparatorTable() {
    std::array<bool, 256> table{};
    for (std::size_t each = 0; each < 0x80; ++each) {
        const auto letter = static_cast<char>(each);
        const bool isWord = ruletext::IsSmallLetter(ruletext::Small(letter)) || ruletext::IsDigit(letter);
        table[each] = !isWord && letter != '_' && letter != '-' && letter != '.' && letter != '%';
    }
    return table;
}
constexpr std::array<bool, 256> kSeparators = SeparatorTable();

bool Fits(char pattern, char letter) {
    return pattern == '^' ? kSeparators[static_cast<unsigned char>(letter)] : pattern == letter;
}

// Where a part of a pattern without stars ends that begins there. At the end of the address a "^" stands for nothing.
std::size_t EndOfPart(std::string_view part, std::string_view text, std::size_t at) {
    for (const char each : part) {
        if (at == text.size()) {
            if (each != '^') return kNowhere;
            continue;
        }
        if (!Fits(each, text[at])) return kNowhere;
        ++at;
    }
    return at;
}

/// Where a part fits first from that place on.
struct Place {
    std::size_t Begin = kNowhere, End = kNowhere;
};
// Where the first two letters of a part stand from there on; they are looked for first, for a slash alone is
// everywhere.
std::size_t FindPair(char first, char second, std::string_view text, std::size_t from) {
    for (std::size_t at = text.find(first, from); at != kNowhere; at = text.find(first, at + 1))
        if (at + 1 < text.size() && text[at + 1] == second) return at;
    return kNowhere;
}

Place FindPart(std::string_view part, std::string_view text, std::size_t from) {
    const bool hasPair = part.size() > 1 && part[0] != '^' && part[1] != '^';
    for (std::size_t at = from; at <= text.size(); ++at) {
        if (hasPair)
            at = FindPair(part[0], part[1], text, at);
        else if (!part.empty() && part.front() != '^')
            at = text.find(part.front(), at);
        if (at == kNowhere) break;
        if (const std::size_t end = EndOfPart(part, text, at); end != kNowhere) return {at, end};
    }
    return {};
}

// The last part, where the address has to end with it. It may fit there in two ways, for a "^" may stand for its end.
bool FitsAtEnd(std::string_view part, std::string_view text, std::size_t from) {
    std::size_t shortest = part.size();
    while (shortest > 0 && part[shortest - 1] == '^') --shortest;
    for (std::size_t length = shortest; length <= part.size(); ++length)
        if (text.size() >= from + length && EndOfPart(part, text, text.size() - length) == text.size()) return true;
    return false;
}

// What follows the first part, which ends there.
bool RestFits(std::string_view rest, bool atEnd, std::string_view text, std::size_t from) {
    while (true) {
        const std::size_t star = rest.find('*');
        const std::string_view part = rest.substr(0, star);
        if (star == kNowhere && atEnd) return FitsAtEnd(part, text, from);
        const Place place = FindPart(part, text, from);
        if (place.Begin == kNowhere) return false;
        if (star == kNowhere) return true;
        from = place.End;
        rest.remove_prefix(star + 1);
    }
}

bool FitsFrom(std::string_view pattern, bool atEnd, std::string_view text, std::size_t at) {
    const std::size_t star = pattern.find('*');
    const std::string_view first = pattern.substr(0, star);
    const std::size_t end = EndOfPart(first, text, at);
    if (end == kNowhere) return false;
    if (star == kNowhere) return !atEnd || end == text.size();
    return RestFits(pattern.substr(star + 1), atEnd, text, end);
}

bool FitsAtHost(std::string_view pattern, bool atEnd, const MatchedAddress& address) {
    if (address.HostEnd == address.HostBegin) return false;
    for (std::size_t at = address.HostBegin; at != kNowhere && at < address.HostEnd;) {
        if (FitsFrom(pattern, atEnd, address.Whole, at)) return true;
        const std::size_t dot = address.Whole.find('.', at);
        at = dot == kNowhere ? kNowhere : dot + 1;
    }
    return false;
}

} // namespace

MatchedAddress MatchedAddressOf(std::string_view address) {
    const std::size_t colon = address.find(':');
    if (colon == kNowhere || address.substr(colon, 3) != "://") return {address, 0, 0};
    const std::size_t begin = colon + 3;
    const std::size_t end = std::min(address.find_first_of("/?#\\", begin), address.size());
    const std::string_view authority = address.substr(begin, end - begin);
    const std::size_t at = authority.rfind('@');
    const std::size_t user = at == kNowhere ? 0 : at + 1;
    std::size_t port = authority.rfind(':');
    // The colons of a number of version 6 stand in brackets.
    if (port == kNowhere || port < user || authority.find(']', port) != kNowhere) port = authority.size();
    return {address, begin + user, begin + port};
}

bool PatternFits(std::string_view pattern, RuleAnchor anchor, bool atEnd, const MatchedAddress& address) {
    if (anchor == RuleAnchor::AtHost) return FitsAtHost(pattern, atEnd, address);
    if (anchor == RuleAnchor::AtStart) return FitsFrom(pattern, atEnd, address.Whole, 0);
    return RestFits(pattern, atEnd, address.Whole, 0);
}

bool LeadsTo(const MatchedAddress& address, std::string_view host) {
    const std::string_view own = address.Host();
    if (!own.ends_with(host)) return false;
    return own.size() == host.size() || own[own.size() - host.size() - 1] == '.';
}

} // namespace tessa
