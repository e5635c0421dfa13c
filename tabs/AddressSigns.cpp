#include "tabs/AddressSigns.h"

namespace AddressSigns {

BoxSign Of(PageSecurity security) {
    switch (security) {
    case PageSecurity::None:
        return {};
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

} // namespace AddressSigns
