#include "blocking/RuleCompiler.h"
#include "blocking/RuleLine.h"
#include "blocking/RuleSet.h"
#include "blocking/RuleText.h"
#include "blocking/hiding/HidingRules.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using tessa::RuleLine;

// Whether one rule that says nothing but its pattern fits, tried without any index. Only of lists in which no line
// takes back what another says.
bool AnyPatternFits(const std::string& list, const std::string& address) {
    for (const char* each : {"@@", "badfilter", "!#"})
        if (list.find(each) != std::string::npos) return false;
    if (list.find('\0') != std::string::npos) return false;
    const std::string small = tessa::ruletext::InSmall(address);
    tessa::ListLines lines(list);
    for (std::string_view line; lines.Next(line);) {
        const RuleLine read = tessa::ReadRuleLine(line);
        const tessa::NetworkRule& rule = read.Network;
        if (read.Kind != tessa::LineKind::Network || rule.IsExpression || line.find('$') != std::string_view::npos)
            continue;
        if (tessa::PatternFits(rule.Pattern, rule.Anchor, rule.AtEnd, tessa::MatchedAddressOf(small))) return true;
    }
    return false;
}

} // namespace

// Any bytes are a list, an address and a page: nothing crashes, what was compiled can be read, and what fits is found.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    tessa::RuleCompiler compiler;
    const auto unknown = compiler.AddList(bytes).Unknown;
    auto image = tessa::RuleImage::Read(compiler.Image(1), 1);
    if (!image) std::abort();
    const tessa::RuleSet rules(*image);
    const std::string address = bytes.substr(0, bytes.find('\n')), site = "https://a.example/" + address;
    for (const std::string& each : {address, site})
        if (each.size() <= tessa::RuleSet::kMostRead &&
            !rules.VerdictOn(each, rules.PageOf(site), tessa::RequestType::Image).By &&
            !unknown.contains(tessa::RuleTrouble::TooSlow) && AnyPatternFits(bytes, each))
            std::abort();
    const tessa::HidingRules hiding(*image);
    const tessa::SiteHidden hidden = hiding.ForSite(rules.PageOf(site).Hosts);
    // What is hidden cannot end the rule that it stands in.
    for (const std::string_view each : hiding.Always(hidden))
        if (each.find('{') != std::string_view::npos && each.find('"') == std::string_view::npos &&
            each.find('\'') == std::string_view::npos && each.find('\\') == std::string_view::npos)
            std::abort();
    (void)tessa::RuleImage::Read(bytes, 1);
    return 0;
}
