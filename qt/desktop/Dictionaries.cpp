#include "qt/desktop/Dictionaries.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QProcess>
#include <QWebEngineProfile>
#include <algorithm>

namespace tessa::qt {

namespace {

constexpr auto kVariable = "QTWEBENGINE_DICTIONARIES_PATH";
const QString kReady = QStringLiteral(".bdic");

bool IsNewer(const QString& file, const QString& than) {
    const QFileInfo first(file), second(than);
    return first.exists() && second.exists() && first.lastModified() >= second.lastModified();
}

// "de-AT" for the language itself, then for any country's.
QString BestOf(const QStringList& names, QString language) {
    language.replace(u'-', u'_');
    const QString plain = language.section(u'_', 0, 0);
    for (const QString& wanted : {language, plain}) {
        if (names.contains(wanted)) return wanted;
    }
    const auto sameLanguage = [&](const QString& each) { return each.startsWith(plain + u'_'); };
    const auto found = std::ranges::find_if(names, sameLanguage);
    return found == names.end() ? QString() : *found;
}

} // namespace

Dictionaries::Places Dictionaries::OfThisComputer(const QString& cacheFolder) {
    Places places;
    if (qEnvironmentVariableIsSet(kVariable)) places.ready << qEnvironmentVariable(kVariable);
    const QString name = QStringLiteral("/qtwebengine_dictionaries");
    places.ready << QCoreApplication::applicationDirPath() + name << QLibraryInfo::path(QLibraryInfo::DataPath) + name;
    places.hunspell << QStringLiteral("/usr/share/hunspell") << QStringLiteral("/usr/share/myspell/dicts");
    places.converter =
        QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) + QStringLiteral("/qwebengine_convert_dict");
    places.kept = cacheFolder.isEmpty() ? QString() : cacheFolder + QStringLiteral("/dictionaries");
    places.languages = QLocale::system().uiLanguages();
    if (QLocale::system() == QLocale::c()) places.languages = {QStringLiteral("en-US")};
    return places;
}

Dictionaries::Dictionaries(Places places) : m_places(std::move(places)) {
    for (const QString& folder : m_places.ready) {
        m_names = Matching(folder, kReady);
        if (m_names.isEmpty()) continue;
        qputenv(kVariable, folder.toUtf8());
        return;
    }
    if (m_places.kept.isEmpty() || !QDir().mkpath(m_places.kept)) return;
    qputenv(kVariable, m_places.kept.toUtf8());
    Convert();
}

QStringList Dictionaries::Matching(const QString& folder, const QString& ending) const {
    QStringList names, found;
    for (const QString& file : QDir(folder).entryList({u'*' + ending}, QDir::Files, QDir::Name))
        names << file.chopped(ending.size());
    for (const QString& language : m_places.languages) {
        const QString name = BestOf(names, language);
        if (!name.isEmpty() && !found.contains(name)) found << name;
    }
    return found;
}

void Dictionaries::Convert() {
    for (const QString& folder : m_places.hunspell) {
        for (const QString& name : Matching(folder, QStringLiteral(".dic"))) {
            const QString from = folder + u'/' + name + QStringLiteral(".dic");
            const QString to = m_places.kept + u'/' + name + kReady;
            if (m_names.contains(name)) continue;
            if (IsNewer(to, from)) {
                m_names << name;
                continue;
            }
            auto* tool = new QProcess(this);
            tool->setStandardOutputFile(QProcess::nullDevice());
            tool->setStandardErrorFile(QProcess::nullDevice());
            connect(tool, &QProcess::finished, this, [this, tool, name, to](int code, QProcess::ExitStatus) {
                tool->deleteLater();
                if (code != 0 || !QFileInfo::exists(to)) return;
                m_names << name;
                Apply();
            });
            tool->start(m_places.converter, {from, to});
        }
    }
}

void Dictionaries::Follow(QWebEngineProfile& profile) {
    m_profiles.emplace_back(&profile);
    Apply();
}

void Dictionaries::Apply() {
    std::erase_if(m_profiles, [](const auto& each) { return each.isNull(); });
    for (const auto& profile : m_profiles) {
        profile->setSpellCheckLanguages(m_names);
        profile->setSpellCheckEnabled(!m_names.isEmpty());
    }
}

} // namespace tessa::qt
