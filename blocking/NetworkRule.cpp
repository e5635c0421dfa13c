#include "blocking/NetworkRule.h"

#include "blocking/RuleText.h"

#include <algorithm>

namespace tessa {

using namespace ruletext;

namespace {

bool IsHostLetter(char each) {
    return IsSmallLetter(each) || IsDigit(each) || each == '-' || each == '_' || each == '.';
}

void AddTo(std::string& all, std::vector<std::string> parts) {
    std::ranges::sort(parts);
    for (const std::string& each : parts) all += each + '|';
    all += '\n';
}

} // namespace

bool NetworkRule::IsHostAlone() const {
    return Anchor == RuleAnchor::AtHost && !IsExpression && !AtEnd && Pattern.size() > 1 && Pattern.ends_with('^') &&
           std::ranges::all_of(std::string_view(Pattern).substr(0, Pattern.size() - 1), IsHostLetter);
}

std::uint64_t NetworkRule::Identity() const {
    std::string all = Pattern + '\n' + Redirect + '\n';
    for (const bool each : {AtEnd, IsExpression, MatchCase, Exception, Important, RedirectOnly})
        all += each ? '1' : '0';
    all += std::to_string(static_cast<int>(Anchor)) + std::to_string(static_cast<int>(Party)) + std::to_string(Types);
    for (const auto* each : {&Domains, &NotDomains, &Targets, &NotTargets}) AddTo(all, *each);
    return HashOf(all);
}

NetworkRule RuleForHost(std::string_view host) {
    NetworkRule rule;
    rule.Anchor = RuleAnchor::AtHost;
    rule.Pattern = std::string(host) + '^';
    return rule;
}

} // namespace tessa
