#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// `SiteDomainOf`, remembered for the hosts that were asked for last: a page asks the same ones again and again.
class SiteDomains {
public:
    /// See `SiteDomainOf`.
    [[nodiscard]] std::string_view Of(std::string_view host);

private:
    struct Known {
        std::string host;
        std::size_t siteLength = 0;
    };
    std::vector<Known> m_known; ///< each host at the place that its hash says
};

} // namespace tessa
