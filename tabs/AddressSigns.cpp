#include "tabs/AddressSigns.h"

#include "base/Address.h"
#include "base/Captions.h"

namespace tessa {

namespace {

/// Units of an address that a tip has room for.
constexpr std::size_t kTipAddress = 200;

BoxSign BareSign(PageSecurity security) {
    switch (security) {
    case PageSecurity::None:
        return {};
    case PageSecurity::Awaited:
        return {{u"chronometer"}, u"Waiting for this page: nothing of it is shown yet"};
    case PageSecurity::Own:
        return {{u"tessaview"}, u"A page of TessaView itself"};
    case PageSecurity::Local:
        return {{u"computer"}, u"From this computer"};
    case PageSecurity::Secure:
        return {{u"security-high"}, u"Secure: nobody on the way can read or change this page"};
    case PageSecurity::Exception:
        return {{u"security-medium"}, u"An exception: you chose to trust a certificate that was refused"};
    case PageSecurity::NotSecure:
        return {{u"security-low"}, u"Not secure: anybody on the way can read and change this page"};
    }
    return {};
}

TextSelection HostPlace(TextView address) {
    const TextView host = Address::HostIn(address);
    if (host.empty()) return {};
    return {static_cast<std::size_t>(host.data() - address.data()), host.size()};
}

} // namespace

namespace AddressSigns {

BoxSign Of(PageSecurity security, TextView address) {
    BoxSign sign = BareSign(security);
    sign.Weight = HostPlace(address);
    sign.Waiting = security == PageSecurity::Awaited;
    return sign;
}

BoxSign Waiting(TextView address, TextView shown) {
    BoxSign sign = Of(PageSecurity::Awaited, address);
    if (shown.empty() || shown == Address::kBlank) return sign;
    sign.Meaning = u"Waiting for this page: what is shown is still " + OneLine(FirstUnits(shown, kTipAddress));
    return sign;
}

} // namespace AddressSigns

} // namespace tessa
