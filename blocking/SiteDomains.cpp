#include "blocking/SiteDomains.h"

#include "blocking/RuleText.h"
#include "blocking/libraries/SiteDomain.h"

namespace tessa {

namespace {

constexpr std::size_t kKnownHosts = 512, kLongestKnownHost = 255;

} // namespace

std::string_view SiteDomains::Of(std::string_view host) {
    if (host.size() > kLongestKnownHost) return SiteDomainOf(host);
    if (m_known.empty()) m_known.resize(kKnownHosts);
    Known& known = m_known[ruletext::HashOf(host) % kKnownHosts];
    if (known.host != host) known = {std::string(host), SiteDomainOf(host).size()};
    return host.substr(host.size() - known.siteLength);
}

} // namespace tessa
