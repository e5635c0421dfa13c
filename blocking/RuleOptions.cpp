#include "blocking/RuleOptions.h"

#include "blocking/RuleText.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tessa {

using namespace ruletext;

namespace {

// What a page would have to be changed for, or an answer, or the address itself. No engine of ours lets us.
constexpr std::array<std::string_view, 19> kNeedAnswers{
    "csp",          "removeparam", "queryprune",    "header",      "permissions", "replace", "urltransform",
    "uritransform", "urlskip",     "inline-script", "inline-font", "cookie",      "stealth", "jsonprune",
    "removeheader", "cname",       "hls",           "webrtc",      "reason"};

bool IsOptionLetter(char each) { return IsSmallLetter(Small(each)) || IsDigit(each) || each == '-' || each == '_'; }

bool LooksLikeOption(std::string_view option) {
    if (option.starts_with('~')) option.remove_prefix(1);
    const std::string_view name = option.substr(0, option.find('='));
    return !name.empty() && std::ranges::all_of(name, IsOptionLetter);
}

bool LookLikeOptions(std::string_view options) {
    if (options.empty()) return false;
    while (!options.empty())
        if (!LooksLikeOption(TakePart(options, ','))) return false;
    return true;
}

/// An option taken apart.
struct Option {
    std::string_view Name, Value;
    bool Not = false;
};

Option OptionOf(std::string_view text) {
    Option option;
    if (text.starts_with('~')) {
        option.Not = true;
        text.remove_prefix(1);
    }
    option.Name = TakePart(text, '=');
    option.Value = text;
    return option;
}

bool ReadDomains(std::string_view value, std::vector<std::string>& those, std::vector<std::string>& others) {
    if (value.empty()) return false;
    while (!value.empty()) {
        std::string_view each = TakePart(value, '|');
        const bool isOther = each.starts_with('~');
        if (isOther) each.remove_prefix(1);
        const std::string domain = DomainOf(each);
        if (domain.empty()) return false;
        (isOther ? others : those).push_back(domain);
    }
    return true;
}

/// What is read of the options besides what the rule keeps.
struct TypeOptions {
    RequestTypes Named = 0, NotNamed = 0;
};

RuleTrouble ReadParty(NetworkRule& rule, bool third) {
    rule.Party = third ? RuleParty::Third : RuleParty::First;
    return RuleTrouble::None;
}

RuleTrouble ReadRedirect(NetworkRule& rule, const Option& option) {
    constexpr std::string_view kResource = "abp-resource:";
    if (rule.Exception) return RuleTrouble::UnknownOption;
    std::string_view value = option.Value;
    if (option.Name == "rewrite") {
        if (!value.starts_with(kResource)) return RuleTrouble::NeedsAnswers;
        value.remove_prefix(kResource.size());
    }
    value = value.substr(0, value.find(':')); // behind it stands an order among rules
    rule.Redirect = value;
    rule.RedirectOnly = option.Name == "redirect-rule";
    return rule.Redirect.empty() ? RuleTrouble::UnknownOption : RuleTrouble::None;
}

RuleTrouble ReadWithValue(NetworkRule& rule, const Option& option) {
    const auto domains = [](bool good) { return good ? RuleTrouble::None : RuleTrouble::BadDomain; };
    if (option.Name == "domain" || option.Name == "from")
        return domains(ReadDomains(option.Value, rule.Domains, rule.NotDomains));
    if (option.Name == "to") return domains(ReadDomains(option.Value, rule.Targets, rule.NotTargets));
    if (option.Name == "denyallow") return domains(ReadDomains(option.Value, rule.NotTargets, rule.Targets));
    if (option.Name == "redirect" || option.Name == "redirect-rule" || option.Name == "rewrite")
        return ReadRedirect(rule, option);
    return std::ranges::count(kNeedAnswers, option.Name) > 0 ? RuleTrouble::NeedsAnswers : RuleTrouble::UnknownOption;
}

// Those that are no types and have no value; nothing for any other.
std::optional<RuleTrouble> ReadPlain(NetworkRule& rule, TypeOptions& types, const Option& option) {
    const std::string_view name = option.Name;
    if (name == "third-party" || name == "3p") return ReadParty(rule, !option.Not);
    if (name == "first-party" || name == "1p") return ReadParty(rule, option.Not);
    if (name == "match-case") return rule.MatchCase = true, RuleTrouble::None;
    if (name == "important") return rule.Important = true, RuleTrouble::None;
    if (name == "badfilter") return rule.BadFilter = true, RuleTrouble::None;
    if (name == "all") {
        types.Named |= kAnyPart | SetOf(RequestType::Popup);
        return RuleTrouble::None;
    }
    if (name == "empty") return rule.Redirect = name, RuleTrouble::None;
    if (name == "mp4") return types.Named |= SetOf(RequestType::Media), RuleTrouble::None;
    if (!name.empty() && std::ranges::all_of(name, [](char each) { return each == '_'; })) return RuleTrouble::None;
    return std::nullopt;
}

RuleTrouble ReadOption(NetworkRule& rule, TypeOptions& types, const Option& option) {
    if (!option.Value.empty()) return option.Not ? RuleTrouble::UnknownOption : ReadWithValue(rule, option);
    if (const auto type = RequestTypeOf(option.Name)) {
        (option.Not ? types.NotNamed : types.Named) |= SetOf(*type);
        return RuleTrouble::None;
    }
    if (const auto plain = ReadPlain(rule, types, option)) return *plain;
    return ReadWithValue(rule, option);
}

} // namespace

RuleParts SplitRule(std::string_view line) {
    const bool slash = line.starts_with('/');
    for (std::size_t at = line.rfind('$'); at != std::string_view::npos && at > 0; at = line.rfind('$', at - 1)) {
        const std::string_view options = line.substr(at + 1);
        if (LookLikeOptions(options)) return {line.substr(0, at), options};
        // The end of a regular expression, which has no options.
        if (slash && line.ends_with('/')) break;
    }
    if (line.starts_with('$') && LookLikeOptions(line.substr(1))) return {{}, line.substr(1)};
    return {line, {}};
}

RuleTrouble ReadOptions(NetworkRule& rule, std::string_view options) {
    TypeOptions types;
    const std::string small = InSmall(options);
    for (std::string_view rest = options, smallRest = small; !rest.empty();) {
        Option option = OptionOf(TakePart(rest, ','));
        option.Name = OptionOf(TakePart(smallRest, ',')).Name;
        const RuleTrouble trouble = ReadOption(rule, types, option);
        if (trouble != RuleTrouble::None) return trouble;
    }
    const RequestTypes unnamed = types.NotNamed & kPartTypes ? kPartTypes : kAnyPart;
    rule.Types = (types.Named != 0 ? types.Named : unnamed) & ~types.NotNamed;
    // Pages are never blocked themselves; without an exception these words mean nothing.
    return RuleTrouble::None;
}

} // namespace tessa
