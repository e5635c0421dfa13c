#include "qt/engine/LoadSwitches.h"

#include "qt/base/EngineVersions.h"
#include "qt/base/Resources.h"

#include <QTimer>
#include <QUuid>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <chrono>

namespace tessa::qt {

namespace {

const QString kName = QStringLiteral("loads");
constexpr std::chrono::milliseconds kBehindTheEnginesTimer{1};

QString AsScript(const LoadOptions& options) {
    const auto word = [](bool on) { return on ? QStringLiteral("true") : QStringLiteral("false"); };
    return QStringLiteral("{ images: %1, animations: %2, videos: %3, sounds: %4 }")
        .arg(word(options.images), word(options.animations), word(options.videos), word(options.sounds));
}

} // namespace

LoadSwitches::LoadSwitches()
    : m_script(Resources::ReadText(QStringLiteral("load-switches.js"))
                   .replace(QStringLiteral("%1"), QUuid::createUuid().toString(QUuid::Id128))) {}

void LoadSwitches::Install(QWebEngineProfile& profile, const LoadOptions& options) const {
    profile.settings()->setAttribute(QWebEngineSettings::AutoLoadImages, options.images);
    EngineVersions::SetAnimations(*profile.settings(), options.animations);
    QWebEngineScript script;
    script.setName(kName);
    script.setSourceCode(QString(m_script).replace(QStringLiteral("%2"), AsScript(options)));
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setRunsOnSubFrames(true);
    for (const QWebEngineScript& before : profile.scripts()->find(kName)) profile.scripts()->remove(before);
    profile.scripts()->insert(script);
}

void LoadSwitches::Tell(QWebEnginePage& page, const LoadOptions& options) const {
    // The engine passes changed settings on by a timer. A picture that the script shows again must find them there.
    // Only when it is painted does the engine look whether it may move.
    const auto tell = [&page, options] {
        page.runJavaScript(QStringLiteral("window.tessaLoads && tessaLoads(%1)").arg(AsScript(options)),
                           QWebEngineScript::ApplicationWorld);
    };
    QTimer::singleShot(kBehindTheEnginesTimer, &page, tell);
}

} // namespace tessa::qt
