#include "qt/engine/Whereabouts.h"

#include "base/Address.h"
#include "base/OwnAddresses.h"
#include "qt/page/AddressUrl.h"

namespace tessa::qt {

Text Whereabouts::Address() const {
    if (stage.What() == PageNavigation::Shown::Overdue) return Text(tessa::Address::kBlank);
    // Whoever writes the session down asks every tab at every change of any.
    const QUrl& address = stage.HasDocument() ? shown : requested;
    if (address != m_told) m_toldText = AddressUrl::Shown(m_told = address);
    return m_toldText;
}

bool Whereabouts::AwaitsFirst() const {
    return stage.What() == PageNavigation::Shown::Nothing && !requested.isEmpty() && requested.scheme() != u"about";
}

bool Whereabouts::Blank(bool awaits) const {
    const auto isBlank = [](const QUrl& url) {
        const Text address = AddressUrl::Shown(url);
        return address == tessa::Address::kBlank || address == OwnAddresses::kPrivate;
    };
    const bool comes = stage.Waits() || stage.Busy() || awaits;
    if (stage.Opened() || (comes && !isBlank(requested))) return false;
    return isBlank(stage.HasDocument() ? shown : requested);
}

} // namespace tessa::qt
