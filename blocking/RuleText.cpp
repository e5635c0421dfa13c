#include "blocking/RuleText.h"

#include "blocking/Punycode.h"

#include <algorithm>

namespace tessa::ruletext {

namespace {

constexpr std::size_t kLongestDomain = 253;

bool IsDomainLetter(char each) {
    return IsSmallLetter(each) || IsDigit(each) || each == '-' || each == '_' || each == '.' || each == ':' ||
           each == '[' || each == ']';
}

} // namespace

std::string InSmall(std::string_view bytes) {
    std::string small(bytes);
    std::ranges::transform(small, small.begin(), Small);
    return small;
}

std::string_view Trimmed(std::string_view bytes) {
    while (!bytes.empty() && IsBlank(bytes.front())) bytes.remove_prefix(1);
    while (!bytes.empty() && IsBlank(bytes.back())) bytes.remove_suffix(1);
    return bytes;
}

std::string_view TakePart(std::string_view& rest, char separator) {
    const std::string_view part = rest.substr(0, rest.find(separator));
    rest.remove_prefix(std::min(rest.size(), part.size() + 1));
    return part;
}

std::string DomainOf(std::string_view bytes) {
    std::string domain = HostInAscii(InSmall(Trimmed(bytes)));
    if (domain.ends_with('.')) domain.pop_back();
    std::string_view letters = domain;
    if (letters.ends_with(".*")) letters.remove_suffix(2);
    const bool good = !letters.empty() && domain.size() <= kLongestDomain && !letters.starts_with('.') &&
                      std::ranges::all_of(letters, IsDomainLetter);
    return good ? domain : std::string();
}

} // namespace tessa::ruletext
