#include "qt/base/EngineVersions.h"

#include "qt/base/NullGuard.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QVersionNumber>
#include <QWebEngineDownloadRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QtWebEngineCore/qtwebenginecoreglobal.h>
#include <array>
#include <utility>

// The engine's headers tell what it can do. An engine newer than its Qt may give Qt's version as its own, as Debian's
// backports do.
#if __has_include(<QWebEngineWebAuthUxRequest>)
#define TESSAVIEW_ENGINE_6_7
#include <QWebEngineDesktopMediaRequest>
#include <QWebEngineWebAuthUxRequest>
#endif
#if __has_include(<QWebEnginePermission>)
#define TESSAVIEW_ENGINE_6_8
#include <QWebEngineFrame>
#include <QWebEnginePermission>
#endif
#if __has_include(<QWebEngineProfileBuilder>)
#define TESSAVIEW_ENGINE_6_9
#include <QWebEngineProfileBuilder>
#endif

namespace tessa::qt {

namespace {

constexpr auto kAccessibility = "QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY";

#ifdef TESSAVIEW_ENGINE_6_8
using EnginePermission = QWebEnginePermission::PermissionType;
#else
using EnginePermission = QWebEnginePage::Feature;
#endif

constexpr std::array kEnginePermissions{
    std::pair{EnginePermission::Geolocation, SitePermission::Location},
    std::pair{EnginePermission::MediaVideoCapture, SitePermission::Camera},
    std::pair{EnginePermission::MediaAudioCapture, SitePermission::Microphone},
    std::pair{EnginePermission::MediaAudioVideoCapture, SitePermission::CameraAndMicrophone},
    std::pair{EnginePermission::Notifications, SitePermission::Notifications},
    std::pair{EnginePermission::DesktopVideoCapture, SitePermission::Screen},
    std::pair{EnginePermission::DesktopAudioVideoCapture, SitePermission::ScreenAndSound},
    std::pair{EnginePermission::MouseLock, SitePermission::Pointer},
#ifdef TESSAVIEW_ENGINE_6_8
    std::pair{EnginePermission::ClipboardReadWrite, SitePermission::Clipboard},
    std::pair{EnginePermission::LocalFontsAccess, SitePermission::Fonts},
#endif
};

std::optional<SitePermission> PermissionOfEngine(EnginePermission wanted) {
    for (const auto& [engine, site] : kEnginePermissions) {
        if (engine == wanted) return site;
    }
    return std::nullopt;
}

#ifdef TESSAVIEW_ENGINE_6_7
using KeyRequest = QWebEngineWebAuthUxRequest;
using KeyFailure = KeyRequest::RequestFailureReason;
using PinTrouble = KeyRequest::PinEntryError;

constexpr std::array kKeyFailures{
    std::pair{KeyFailure::Timeout, "Nobody used a key in time."},
    std::pair{KeyFailure::KeyNotRegistered, "This key is not known there."},
    std::pair{KeyFailure::KeyAlreadyRegistered, "This key is known there already."},
    std::pair{KeyFailure::SoftPinBlock, "The PIN was wrong too often. Unplug the key and plug it in again."},
    std::pair{KeyFailure::HardPinBlock, "The PIN was wrong too often. The key must be reset before it can be used."},
    std::pair{KeyFailure::AuthenticatorRemovedDuringPinEntry, "The key was taken away."},
    std::pair{KeyFailure::AuthenticatorMissingResidentKeys, "This key cannot keep an account."},
    std::pair{KeyFailure::AuthenticatorMissingUserVerification, "This key cannot tell who uses it."},
    std::pair{KeyFailure::AuthenticatorMissingLargeBlob, "This key cannot keep what the page wants to keep there."},
    std::pair{KeyFailure::NoCommonAlgorithms, "The key and the page have no way of signing in common."},
    std::pair{KeyFailure::StorageFull, "There is no room left on the key."},
    std::pair{KeyFailure::UserConsentDenied, "The key was not allowed to answer."},
};
constexpr std::array kPinTroubles{
    std::pair{PinTrouble::InternalUvLocked, "The key did not recognise you; it needs its PIN."},
    std::pair{PinTrouble::WrongPin, "The PIN was wrong."},
    std::pair{PinTrouble::TooShort, "The PIN is too short."},
    std::pair{PinTrouble::InvalidCharacters, "The key does not take these characters."},
    std::pair{PinTrouble::SameAsCurrentPin, "The key has this PIN already."},
};

QString WordsFor(const auto& table, auto reason) {
    for (const auto& [each, words] : table) {
        if (each == reason) return QString::fromLatin1(words);
    }
    return {};
}

void AddPin(EngineVersions::SecurityKeyState& state, const QWebEngineWebAuthPinRequest& pin) {
    const bool challenge = pin.reason == KeyRequest::PinEntryReason::Challenge;
    state.Step = challenge ? EngineVersions::KeyStep::EnterPin : EngineVersions::KeyStep::SetPin;
    state.Trouble = WordsFor(kPinTroubles, pin.error);
    state.ShortestPin = pin.minPinLength;
    if (pin.error == PinTrouble::WrongPin && pin.remainingAttempts > 0)
        state.Trouble += QStringLiteral(" Attempts left: %1.").arg(pin.remainingAttempts);
}

EngineVersions::SecurityKeyState StateOfKey(const KeyRequest& request) {
    using Step = EngineVersions::KeyStep;
    EngineVersions::SecurityKeyState state;
    state.Site = request.relyingPartyId();
    switch (request.state()) {
    case KeyRequest::WebAuthUxState::SelectAccount:
        state.Step = Step::ChooseAccount;
        state.Accounts = request.userNames();
        break;
    case KeyRequest::WebAuthUxState::CollectPin:
        AddPin(state, request.pinRequest());
        break;
    case KeyRequest::WebAuthUxState::FinishTokenCollection:
        state.Step = Step::Touch;
        break;
    case KeyRequest::WebAuthUxState::RequestFailed:
        state.Step = Step::Failed;
        state.Trouble = WordsFor(kKeyFailures, request.requestFailureReason());
        break;
    case KeyRequest::WebAuthUxState::NotStarted:
    case KeyRequest::WebAuthUxState::Cancelled:
    case KeyRequest::WebAuthUxState::Completed:
        break;
    }
    return state;
}
#endif

// What it does is asked of the engine that runs, not of its headers.
int ChromiumOfEngine() { return QVersionNumber::fromString(QLatin1String(qWebEngineChromiumVersion())).majorVersion(); }

} // namespace

// What shared workers load, no engine shows to anybody, and those of 6.10 and later nothing that any worker loads. With
// its own rule the engine still shows a local page's pictures and styles, but scripts cannot read them. The setting of
// the same name goes further: pictures do not come either.
QByteArray EngineVersions::Switches() {
    QByteArray switches = "--blink-settings=allowFileAccessFromFileURLs=false";
#ifdef TESSAVIEW_ENGINE_6_9
    // Those of 6.11 do not turn it on by themselves, though a screen reader is there (QTBUG-142320).
    if (qEnvironmentVariableIntValue(kAccessibility) == 1) switches += " --force-renderer-accessibility";
#endif
    return switches;
}

void EngineVersions::TellScreenReaders() { qputenv(kAccessibility, "1"); }

// The program itself remembers what is to last; what the engine remembered on disk it would answer for ever.
std::unique_ptr<QWebEngineProfile> EngineVersions::OpenProfile(const QString& name, const QString& folder,
                                                               const QString& cacheFolder) {
#ifdef TESSAVIEW_ENGINE_6_9
    QWebEngineProfileBuilder builder;
    builder.setPersistentStoragePath(folder)
        .setCachePath(cacheFolder)
        .setPersistentPermissionsPolicy(QWebEngineProfile::PersistentPermissionsPolicy::StoreInMemory);
    return std::unique_ptr<QWebEngineProfile>(builder.createProfile(name));
#else
    auto profile = std::make_unique<QWebEngineProfile>(name);
    profile->setPersistentStoragePath(folder);
    profile->setCachePath(cacheFolder);
#ifdef TESSAVIEW_ENGINE_6_8
    profile->setPersistentPermissionsPolicy(QWebEngineProfile::PersistentPermissionsPolicy::StoreInMemory);
#endif
    return profile;
#endif
}

void EngineVersions::FollowPermissions(QWebEnginePage& page, QObject& context,
                                       const std::function<void(const PermissionRequest&)>& asked) {
#ifdef TESSAVIEW_ENGINE_6_8
    const auto tell = [asked](const QWebEnginePermission& permission) {
        asked({permission.origin(), PermissionOfEngine(permission.permissionType()),
               [permission](bool allowed) { allowed ? permission.grant() : permission.deny(); }});
    };
    QObject::connect(&page, &QWebEnginePage::permissionRequested, &context, tell);
#else
    using Policy = QWebEnginePage::PermissionPolicy;
    const auto tell = [asked, &page](const QUrl& origin, QWebEnginePage::Feature feature) {
        const auto answer = [page = QPointer(&page), origin, feature](bool allowed) {
            const auto policy = allowed ? Policy::PermissionGrantedByUser : Policy::PermissionDeniedByUser;
            if (page) page->setFeaturePermission(origin, feature, policy);
        };
        asked({origin, PermissionOfEngine(feature), answer});
    };
    QObject::connect(&page, &QWebEnginePage::featurePermissionRequested, &context, tell);
#endif
}

void EngineVersions::ForgetPermission(QWebEnginePage& page, const QUrl& origin, SitePermission permission) {
    for (const auto& [engine, site] : kEnginePermissions) {
        if (site != permission) continue;
#ifdef TESSAVIEW_ENGINE_6_8
        page.profile()->queryPermission(origin, engine).reset();
#else
        // All others it asks about every time.
        if (engine == EnginePermission::Geolocation || engine == EnginePermission::Notifications)
            page.setFeaturePermission(origin, engine, QWebEnginePage::PermissionUnknown);
#endif
    }
}

void EngineVersions::FollowScreenRequests([[maybe_unused]] QWebEnginePage& page, [[maybe_unused]] QObject& context,
                                          [[maybe_unused]] const std::function<void(const ScreenRequest&)>& asked) {
#ifdef TESSAVIEW_ENGINE_6_7
    // The closures keep the request, and with it the lists.
    const auto tell = [asked](const QWebEngineDesktopMediaRequest& request) {
        asked({request.screensModel(), request.windowsModel(),
               [request](const QModelIndex& screen) { request.selectScreen(screen); },
               [request](const QModelIndex& window) { request.selectWindow(window); },
               [request] { request.cancel(); }});
    };
    QObject::connect(&page, &QWebEnginePage::desktopMediaRequested, &context, tell);
#endif
}

void EngineVersions::FollowSecurityKeys([[maybe_unused]] QWebEnginePage& page, [[maybe_unused]] QObject& context,
                                        [[maybe_unused]] const std::function<void(const SecurityKeyRequest&)>& asked,
                                        [[maybe_unused]] const std::function<void()>& changed) {
#ifdef TESSAVIEW_ENGINE_6_7
    const auto tell = [asked, changed, &context](KeyRequest* request) {
        const QPointer<KeyRequest> key(request);
        QObject::connect(request, &KeyRequest::stateChanged, &context, changed);
        // The engine deletes it when the page leaves.
        QObject::connect(request, &QObject::destroyed, &context, changed);
        asked({[key] { return key ? StateOfKey(*key) : SecurityKeyState(); },
               [key](const QString& account) { return key ? key->setSelectedAccount(account) : void(); },
               [key](const QString& pin) { return key ? key->setPin(pin) : void(); },
               [key] { return key ? key->cancel() : void(); }});
    };
    QObject::connect(&page, &QWebEnginePage::webAuthUxRequested, &context, tell);
#endif
}

void EngineVersions::FollowPrintRequests(QWebEnginePage& page, QObject& context, const std::function<void()>& asked) {
    QObject::connect(&page, &QWebEnginePage::printRequested, &context, asked);
#ifdef TESSAVIEW_ENGINE_6_8
    // Before, a frame's wish was the page's.
    QObject::connect(&page, &QWebEnginePage::printRequestedByFrame, &context, asked);
#endif
}

bool EngineVersions::GoesThereSilently(const QUrl& shown, const QUrl& target) {
    // That of 6.10 is the first that is based on this one.
    constexpr int kChromium = 134;
    return ChromiumOfEngine() >= kChromium && target.hasFragment() && shown == target;
}

void EngineVersions::OpenIn(QWebEngineNewWindowRequest& request, QWebEnginePage& page) {
#ifndef TESSAVIEW_ENGINE_6_8
    // The settings of a page take effect, and stay with it, only from when it has begun to load something.
    page.load(QUrl(QStringLiteral("about:blank")));
#endif
    request.openIn(&page);
#ifndef TESSAVIEW_ENGINE_6_8
    // Nothing is changed by this, but the engine hands all settings to the page anew.
    page.settings()->resetAttribute(QWebEngineSettings::JavascriptCanAccessClipboard);
#endif
}

bool EngineVersions::TakesSizeFromScene() {
#ifdef TESSAVIEW_ENGINE_6_7
    return false;
#else
    return true;
#endif
}

bool EngineVersions::KeepsAskedNames() {
    // That of 6.11 is the first that is based on this one.
    constexpr int kChromium = 140;
    return ChromiumOfEngine() < kChromium;
}

// Of a page that has closed or sleeps some engines, 6.4 among them, ask through a null pointer. Nothing tells before.
QWebEnginePage* EngineVersions::PageOf(const QWebEngineDownloadRequest& request) {
    struct Question {
        const QWebEngineDownloadRequest& request;
        QWebEnginePage* page = nullptr;
    } question{request};
    const auto ask = [](void* context) {
        auto& asked = *static_cast<Question*>(context);
        asked.page = asked.request.page();
    };
    return NullGuard::Survives(ask, &question) ? question.page : nullptr;
}

// Before 6.9 the engine dropped by itself what nobody accepted; since then it waits for an answer.
void EngineVersions::Refuse(QWebEngineDownloadRequest& request) {
    request.cancel();
    // Later, for the engine is in the middle of asking. Before 6.9 it deletes the request itself.
#ifdef TESSAVIEW_ENGINE_6_9
    request.deleteLater();
#endif
}

void EngineVersions::SetAnimations([[maybe_unused]] QWebEngineSettings& settings, [[maybe_unused]] bool on) {
#ifdef TESSAVIEW_ENGINE_6_8
    using Policy = QWebEngineSettings::ImageAnimationPolicy;
    settings.setImageAnimationPolicy(on ? Policy::Allow : Policy::Disallow);
#endif
}

} // namespace tessa::qt
