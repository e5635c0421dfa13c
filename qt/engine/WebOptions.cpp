#include "qt/engine/WebOptions.h"

#include "qt/base/Strings.h"
#include "qt/engine/Requests.h"

#include <QNetworkProxy>
#include <QStandardPaths>
#include <QWebEngineCookieStore>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

namespace tessa::qt {

namespace {

const QString kSignalsName = QStringLiteral("signals");

// What the headers tell the server, the page can read.
QString SignalsScript(const InternetValues& values) {
    const auto define = [](const char* name, const char* value) {
        return QStringLiteral("Object.defineProperty(Navigator.prototype, '%1', "
                              "{ get: () => %2, configurable: true, enumerable: true });")
            .arg(QLatin1String(name), QLatin1String(value));
    };
    QString script;
    if (values.doNotTrack) script += define("doNotTrack", "'1'");
    if (values.globalPrivacyControl) script += define("globalPrivacyControl", "true");
    return script;
}

void SetSignals(const InternetValues& values, QWebEngineProfile& profile) {
    for (const QWebEngineScript& before : profile.scripts()->find(kSignalsName)) profile.scripts()->remove(before);
    const QString source = SignalsScript(values);
    if (source.isEmpty()) return;
    QWebEngineScript script;
    script.setName(kSignalsName);
    script.setSourceCode(source);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::MainWorld);
    script.setRunsOnSubFrames(true);
    profile.scripts()->insert(script);
}

void SetCookies(CookieRule rule, QWebEngineCookieStore& cookies) {
    // Asked on a thread of the engine's own.
    if (rule == CookieRule::All) return cookies.setCookieFilter(nullptr);
    cookies.setCookieFilter([rule](const QWebEngineCookieStore::FilterRequest& request) {
        return rule == CookieRule::SameSite && !request.thirdParty;
    });
}

// The engine looks for another proxy only when something is asked for, and too late for that. So something is, which
// goes nowhere.
void HaveProxyLookedAt(QWebEngineProfile& profile) {
    auto* page = new QWebEnginePage(&profile, &profile);
    QObject::connect(page, &QWebEnginePage::loadFinished, page, &QObject::deleteLater);
    page->load(QUrl(QStringLiteral("http://127.0.0.1:65535/")));
}

QNetworkProxy ProxyOf(const InternetValues& values) {
    if (values.proxy != ProxyKind::Http && values.proxy != ProxyKind::Socks)
        return QNetworkProxy(QNetworkProxy::NoProxy);
    const auto type = values.proxy == ProxyKind::Http ? QNetworkProxy::HttpProxy : QNetworkProxy::Socks5Proxy;
    return QNetworkProxy(type, ToQt(values.proxyHost), static_cast<quint16>(values.proxyPort));
}

} // namespace

namespace WebOptions {

void Apply(const InternetValues& values, QWebEngineProfile& profile) {
    profile.settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, values.javaScript);
    SetCookies(values.cookies, *profile.cookieStore());
    SetSignals(values, profile);
    profile.setDownloadPath(ToQt(DownloadFolder(values)));
}

void Apply(const InternetValues& values, Requests& requests) {
    requests.DoNotTrack = values.doNotTrack;
    requests.GlobalPrivacyControl = values.globalPrivacyControl;
}

void ApplyProxy(const InternetValues& values, QWebEngineProfile* profile) {
    const bool system = values.proxy == ProxyKind::System;
    const QNetworkProxy proxy = ProxyOf(values);
    if (system == QNetworkProxyFactory::usesSystemConfiguration() &&
        (system || proxy == QNetworkProxy::applicationProxy()))
        return;
    QNetworkProxyFactory::setUseSystemConfiguration(system);
    if (!system) QNetworkProxy::setApplicationProxy(proxy);
    if (profile) HaveProxyLookedAt(*profile);
}

Text DownloadFolder(const InternetValues& values) {
    if (!values.downloadFolder.empty()) return values.downloadFolder;
    return FromQt(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
}

} // namespace WebOptions

} // namespace tessa::qt
