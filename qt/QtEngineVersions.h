#pragma once
#include "pages/SitePermissions.h"

#include <QModelIndex>
#include <QString>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

class QAbstractItemModel;
class QObject;
class QWebEngineDownloadRequest;
class QWebEnginePage;
class QWebEngineProfile;
class QWebEngineSettings;

/// What differs between the versions of the engine that the program can be built with, from 6.4 to the newest. No other
/// file asks which one it is. The engine counts its versions apart from Qt's.
namespace QtEngineVersions {

/// The profile that keeps what it has in these folders; nothing when the engine does not give it.
[[nodiscard]] std::unique_ptr<QWebEngineProfile> OpenProfile(const QString& name, const QString& folder,
                                                             const QString& cacheFolder);

/// What a page asks its user for.
struct PermissionRequest {
    QUrl Origin;
    std::optional<SitePermission> Permission; ///< nothing for what no user is asked about
    std::function<void(bool allowed)> Answer; ///< to be called once; the page may be gone by then
};
/// Tells what the page asks for from now on, for as long as `context` lives.
void FollowPermissions(QWebEnginePage& page, QObject& context,
                       const std::function<void(const PermissionRequest&)>& asked);
/// Has the engine ask again for what it remembers of that origin by itself.
void ForgetPermission(QWebEnginePage& page, const QUrl& origin, SitePermission permission);

/// A page wants to be shown a screen or a window. The permission to see it is asked for afterwards.
struct ScreenRequest {
    QAbstractItemModel* Screens = nullptr; ///< names, a row each; live as long as the request
    QAbstractItemModel* Windows = nullptr;
    std::function<void(const QModelIndex& screen)> ShareScreen; ///< one of the three is to be called, once
    std::function<void(const QModelIndex& window)> ShareWindow;
    std::function<void()> Refuse;
};
/// Tells what is asked for from now on, for as long as `context` lives. Engines before 6.7 show their first screen.
void FollowScreenRequests(QWebEnginePage& page, QObject& context,
                          const std::function<void(const ScreenRequest&)>& asked);

/// Tells that the page, a frame of it or the engine's PDF viewer wants to be printed, for as long as `context` lives.
void FollowPrintRequests(QWebEnginePage& page, QObject& context, const std::function<void()>& asked);

/// Drops a download that nobody has accepted.
void Refuse(QWebEngineDownloadRequest& request);
/// Whether pictures may move; engines before 6.8 do not know.
void SetAnimations(QWebEngineSettings& settings, bool on);

} // namespace QtEngineVersions
