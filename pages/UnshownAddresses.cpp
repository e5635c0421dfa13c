#include "pages/UnshownAddresses.h"

#include "base/Address.h"
#include "base/Schemes.h"

namespace tessa {

namespace {

bool NamesNoHost(TextView rest) { return rest.find_first_not_of(u'/') == TextView::npos; }

} // namespace

namespace UnshownAddresses {

Text WhyNot(TextView address) {
    const std::size_t colon = address.find(u':');
    if (colon == TextView::npos) return {};
    const Text scheme = InSmallLetters(address.substr(0, colon));
    const TextView rest = address.substr(colon + 1);
    if (scheme.size() == 1)
        return u"There are no drives with letters on this computer. The path of a file begins with \"/\".";
    if (KindOfScheme(scheme) == SchemeKind::About && rest.substr(0, rest.find_first_of(u"?#")) != u"blank")
        return u"TessaView has no page of that name.";
    if (KindOfScheme(scheme) == SchemeKind::Web && NamesNoHost(rest)) return u"The address names no host.";
    if (KindOfScheme(scheme) == SchemeKind::Inner) return u"Such addresses are used inside the program only.";
    return {};
}

} // namespace UnshownAddresses

} // namespace tessa
