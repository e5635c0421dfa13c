#pragma once
#include "pages/SitePermissions.h"

#include <QByteArray>
#include <QModelIndex>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

class QAbstractItemModel;
class QObject;
class QWebEngineDownloadRequest;
class QWebEngineNewWindowRequest;
class QWebEnginePage;
class QWebEngineProfile;
class QWebEngineSettings;

namespace tessa::qt {

/// What differs between the versions of the engine that the program can be built with, from 6.4 to the newest. No other
/// file asks which one it is. The engine counts its versions apart from Qt's.
namespace EngineVersions {

/// What the engine is to be started with; may be empty. It reads this once, as it makes its first profile.
[[nodiscard]] QByteArray Switches();

/// Has the engine tell screen readers what pages say. To be called before its first profile is made.
void TellScreenReaders();

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

/// What the user of a security key has to do next.
enum class KeyStep {
    None, ///< the engine is at it, or it is over
    ChooseAccount,
    EnterPin,
    SetPin, ///< a key that never had one
    Touch,
    Failed
};
struct SecurityKeyState {
    KeyStep Step = KeyStep::None;
    QString Site;         ///< the domain that the key signs in to
    QStringList Accounts; ///< to choose from
    QString Trouble;      ///< why the last PIN was not taken, or why it failed; may be empty
    int ShortestPin = 0;  ///< characters that a new PIN needs at least
};
/// A page uses a security key. What its user is asked for follows from the state, which changes as the key answers.
struct SecurityKeyRequest {
    std::function<SecurityKeyState()> State; ///< may be called at any time, also when the page is gone
    std::function<void(const QString& account)> Choose;
    std::function<void(const QString& pin)> EnterPin;
    std::function<void()> Cancel; ///< may be called in any state
};
/// Tells of each use of a key, then of each change of its state, while `context` lives. Engines before 6.7 ask for no
/// PIN and no account: there a key that needs them does not work.
void FollowSecurityKeys(QWebEnginePage& page, QObject& context,
                        const std::function<void(const SecurityKeyRequest&)>& asked,
                        const std::function<void()>& changed);

/// Tells that the page, a frame of it or the PDF viewer wants to be printed, while `context` lives.
void FollowPrintRequests(QWebEnginePage& page, QObject& context, const std::function<void()>& asked);

/// Whether the engine scrolls silently to a place on the page that shows this very address, as in "page#place". Engines
/// before 6.10 load the page anew.
[[nodiscard]] bool GoesThereSilently(const QUrl& shown, const QUrl& target);

/// Shows in the page what another page wants a window for. Engines before 6.8 do not know how such a page is to look
/// until its first navigation ends. They end the program when a script fills it before.
void OpenIn(QWebEngineNewWindowRequest& request, QWebEnginePage& page);

/// Whether a hidden page takes its size from its scene, as the engine does up to 6.6. In 6.11 only a widget that is
/// told to make a picture of itself gives it one.
[[nodiscard]] bool TakesSizeFromScene();

/// Whether a download has the name that it was asked under, wherever its address leads. Engines from 6.11 on drop it
/// for files of other sites, and for pages without an address.
[[nodiscard]] bool KeepsAskedNames();
/// The page that a download is of; nothing when that has gone.
[[nodiscard]] QWebEnginePage* PageOf(const QWebEngineDownloadRequest& request);
/// Drops a download that nobody has accepted.
void Refuse(QWebEngineDownloadRequest& request);
/// Whether pictures may move; engines before 6.8 do not know.
void SetAnimations(QWebEngineSettings& settings, bool on);

} // namespace EngineVersions

} // namespace tessa::qt
