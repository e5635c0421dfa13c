#include "blocking/libraries/SiteDomain.h"

// Where libpsl is not there: the last two parts of a host are what somebody has registered.
namespace tessa {

bool IsNumericHost(std::string_view host) {
    const char last = host.empty() ? '\0' : host.back();
    return last == ']' || (last >= '0' && last <= '9');
}

std::string_view SiteDomainOf(std::string_view host) {
    if (IsNumericHost(host) || host.rfind('.') == std::string_view::npos) return host;
    const std::size_t dot = host.rfind('.', host.rfind('.') - 1);
    return host.substr(dot == std::string_view::npos ? 0 : dot + 1);
}

} // namespace tessa
