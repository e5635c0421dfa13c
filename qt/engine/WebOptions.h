#pragma once
#include "settings/InternetSettings.h"

class QWebEngineProfile;

namespace tessa::qt {

class Requests;

/// Puts the Internet Options into effect. They are for the pages' profile, for the requests that leave, and for the way
/// to the network.
namespace WebOptions {

/// For the pages of that profile, those that are there too.
void Apply(const InternetValues& values, QWebEngineProfile& profile);
void Apply(const InternetValues& values, Requests& requests);
/// For the whole program. `profile`, if there is one already, goes by it a moment later. Before there is one, from its
/// first request on.
void ApplyProxy(const InternetValues& values, QWebEngineProfile* profile);
/// Where downloads go; it may not exist yet.
[[nodiscard]] Text DownloadFolder(const InternetValues& values);

} // namespace WebOptions

} // namespace tessa::qt
