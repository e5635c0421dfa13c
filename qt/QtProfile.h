#pragma once
#include "common/FileLock.h"
#include "qt/QtLoadSwitches.h"

#include <QString>
#include <functional>
#include <memory>
#include <string>

class QWebEnginePage;
class QWebEngineProfile;
class QtDialogScheme;
class QtStartPage;

/// The engine's profile: cookies, storage and cache of all pages. Kept on disk by the one process that holds the
/// lock on its folder; a further instance, or one whose folder cannot be written, keeps its profile in memory.
class QtProfile {
public:
    /// `token` marks the lines that our script in the pages writes.
    QtProfile(const QString& folder, const QString& cacheFolder, const QString& token);
    ~QtProfile();

    [[nodiscard]] QWebEngineProfile* Get() const { return m_profile.get(); }
    [[nodiscard]] QtDialogScheme& Dialogs() const { return *m_dialogs; }
    /// How the home page is made.
    void SetStartPage(std::function<std::string()> page);
    [[nodiscard]] QtStartPage& OwnPages() const { return *m_startPage; }
    /// What pages may load from now on.
    void SetLoadOptions(const QtLoadOptions& options);
    /// The same for a page that is there already.
    void TellLoadOptions(QWebEnginePage& page, const QtLoadOptions& options) const { m_loads.Tell(page, options); }

private:
    void InstallFrameScript(const QString& token);
    void InstallPageScript(const QString& token);
    void InstallInputWatch(const QString& token);
    void ApplySettings();

    FileLock m_lock; ///< held until the profile has ended
    QtLoadSwitches m_loads;
    std::unique_ptr<QtStartPage> m_startPage;
    std::unique_ptr<QtDialogScheme> m_dialogs;
    std::unique_ptr<QWebEngineProfile> m_profile;
};
