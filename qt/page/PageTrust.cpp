#include "qt/page/PageTrust.h"

#include "qt/base/Strings.h"
#include "qt/page/StartPageScheme.h"
#include "qt/page/WebPage.h"

#include <QHostAddress>

namespace tessa::qt {

namespace {

// What this computer says to itself passes nobody on the way.
bool IsThisComputer(const QString& host) {
    return host == u"localhost" || host.endsWith(u".localhost") || QHostAddress(host).isLoopback();
}

} // namespace

PageSecurity SecurityOf(const QUrl& address, const AcceptedCertificates& accepted) {
    const QString scheme = address.scheme();
    if (scheme == u"view-source" || scheme == u"blob") return SecurityOf(QUrl(address.path()), accepted);
    if (scheme == QLatin1String(StartPageScheme::Scheme())) return PageSecurity::Own;
    if (scheme == u"file") return PageSecurity::Local;
    if (scheme == u"https") {
        const bool exception = accepted.HasHost(FromQt(WebPage::HostAndPort(address)));
        return exception ? PageSecurity::Exception : PageSecurity::Secure;
    }
    if (scheme == u"http") return IsThisComputer(address.host()) ? PageSecurity::Local : PageSecurity::NotSecure;
    return PageSecurity::None;
}

} // namespace tessa::qt
