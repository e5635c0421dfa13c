#include "qt/engine/Profile.h"

#include "qt/base/EngineVersions.h"
#include "qt/base/Resources.h"
#include "qt/engine/StoredBrowsingData.h"
#include "qt/page/DialogScheme.h"
#include "qt/page/StartPageScheme.h"

#include <QFile>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <utility>

namespace tessa::qt {

namespace {

constexpr auto kSwitchesVariable = "QTWEBENGINE_CHROMIUM_FLAGS";

/// The switches that the engine starts with, behind the user's own. Programs that ours starts later do not get them.
class EngineSwitches {
public:
    EngineSwitches() {
        const QByteArray ours = EngineVersions::Switches();
        if (!ours.isEmpty()) qputenv(kSwitchesVariable, m_before + ' ' + ours);
    }
    ~EngineSwitches() { m_wasSet ? qputenv(kSwitchesVariable, m_before) : qunsetenv(kSwitchesVariable); }
    Q_DISABLE_COPY_MOVE(EngineSwitches)

private:
    const bool m_wasSet = qEnvironmentVariableIsSet(kSwitchesVariable);
    const QByteArray m_before = qgetenv(kSwitchesVariable);
};

} // namespace

Profile::Profile(const QString& folder, const QString& cacheFolder, const QString& token,
                 std::function<std::string()> startPage)
    : m_startPage(std::make_unique<StartPageScheme>(std::move(startPage))),
      m_dialogs(std::make_unique<DialogScheme>()) {
    const EngineSwitches switches;
    if (!folder.isEmpty()) {
        StoredBrowsingData::ForgetSites(folder);
        // The engine's own list of what sites may do, which nobody here could look at or change.
        QFile::remove(folder + QStringLiteral("/permissions.json"));
        m_profile = EngineVersions::OpenProfile(QStringLiteral("TessaView"), folder, cacheFolder);
    }
    if (!m_profile) m_profile = std::make_unique<QWebEngineProfile>();
    ApplySettings();
    InstallFrameWatch(token);
    m_profile->installUrlSchemeHandler(StartPageScheme::Scheme(), m_startPage.get());
    m_profile->installUrlSchemeHandler(DialogScheme::Scheme(), m_dialogs.get());
}

Profile::~Profile() {
    // Those that nobody shows and that are not done yet.
    qDeleteAll(m_profile->findChildren<QWebEnginePage*>(QString(), Qt::FindDirectChildrenOnly));
    m_profile.reset();
}

void Profile::ApplySettings() {
    auto* settings = m_profile->settings();
    // A window that a page opens by itself is held back by us, so that its user can be asked.
    settings->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, true);
    settings->setAttribute(QWebEngineSettings::ScreenCaptureEnabled, true);
    // Without it the engine's PDF viewer does not run.
    settings->setAttribute(QWebEngineSettings::PluginsEnabled, true);
    settings->setAttribute(QWebEngineSettings::PdfViewerEnabled, true);
    settings->setAttribute(QWebEngineSettings::FullScreenSupportEnabled, true);
    settings->setAttribute(QWebEngineSettings::ScrollAnimatorEnabled, true);
    settings->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    // They reach the page's own check, which lets none pass: the program asks first, and opens them itself. A page that
    // nobody has clicked or typed into may not even ask.
    settings->setUnknownUrlSchemePolicy(QWebEngineSettings::AllowUnknownUrlSchemesFromUserInteraction);
    m_profile->setPersistentCookiesPolicy(QWebEngineProfile::AllowPersistentCookies);
}

void Profile::SetLoadOptions(const LoadOptions& options) { m_loads.Install(*m_profile, options); }

void Profile::InstallFrameWatch(const QString& token) {
    QWebEngineScript script;
    script.setName(QStringLiteral("frame"));
    script.setSourceCode(Resources::ReadText(QStringLiteral("frame-watch.js")).replace(QStringLiteral("%1"), token));
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setRunsOnSubFrames(true);
    m_profile->scripts()->insert(script);
}

} // namespace tessa::qt
