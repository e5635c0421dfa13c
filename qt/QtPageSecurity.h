#pragma once
#include "common/platform/BrowserView.h"
#include "pages/Certificates.h"

#include <QUrl>

/// How far a page at that address can be trusted to come from there. `accepted` are the exceptions that the user has
/// made.
[[nodiscard]] PageSecurity SecurityOf(const QUrl& address, const AcceptedCertificates& accepted);
