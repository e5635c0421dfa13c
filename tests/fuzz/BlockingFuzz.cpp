#include "blocking/HidingRules.h"
#include "blocking/RuleCompiler.h"
#include "blocking/RuleSet.h"

#include <cstdint>
#include <cstdlib>
#include <string>

// Any bytes are a list, an address and a page: nothing crashes, and what was compiled can be read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    tessa::RuleCompiler compiler;
    compiler.AddList(bytes);
    auto image = tessa::RuleImage::Read(compiler.Image(1), 1);
    if (!image) std::abort();
    const tessa::RuleSet rules(*image);
    const std::string address = bytes.substr(0, bytes.find('\n')), site = "https://a.example/" + address;
    for (const std::string& each : {address, site})
        (void)rules.VerdictOn(each, rules.PageOf(site), tessa::RequestType::Image);
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
