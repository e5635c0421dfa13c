#pragma once
#include "settings/InternetSettings.h"

class QtRequests;
class QWebEngineProfile;

/// Puts the Internet Options into effect: for the profile of the pages, for the requests that leave, and for the way
/// to the network.
namespace QtWebOptions {

/// For the pages of that profile, those that are there too.
void Apply(const InternetValues& values, QWebEngineProfile& profile);
void Apply(const InternetValues& values, QtRequests& requests);
/// For the whole program.
void ApplyProxy(const InternetValues& values);
/// Where downloads go; it may not exist yet.
[[nodiscard]] Text DownloadFolder(const InternetValues& values);

} // namespace QtWebOptions
