#include "blocking/libraries/SiteDomain.h"

#include <algorithm>
#include <libpsl.h>
#include <string>

namespace tessa {

bool IsNumericHost(std::string_view host) {
    if (host.starts_with('[')) return true;
    const std::string_view last = host.substr(host.rfind('.') + 1);
    return !last.empty() && std::ranges::all_of(last, [](char each) { return each >= '0' && each <= '9'; });
}

std::string_view SiteDomainOf(std::string_view host) {
    if (host.empty() || IsNumericHost(host)) return host;
    const std::string name(host.substr(0, host.size() - (host.ends_with('.') ? 1 : 0)));
    const char* domain = psl_registrable_domain(psl_builtin(), name.c_str());
    return domain ? host.substr(static_cast<std::size_t>(domain - name.c_str())) : host;
}

} // namespace tessa
