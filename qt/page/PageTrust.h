#pragma once
#include "pages/Certificates.h"
#include "platform/BrowserView.h"

#include <QUrl>

namespace tessa::qt {

/// How far a page at that address can be trusted to come from there. `accepted` are the exceptions that the user has
/// made.
[[nodiscard]] PageSecurity SecurityOf(const QUrl& address, const AcceptedCertificates& accepted);

} // namespace tessa::qt
