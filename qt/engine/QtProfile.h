#pragma once
#include "qt/engine/QtLoadSwitches.h"

#include <QString>
#include <functional>
#include <memory>
#include <string>

class QWebEnginePage;
class QWebEngineProfile;

namespace tessa::qt {

class QtDialogScheme;
class QtStartPage;

/// The engine's profile: cookies, storage and cache of all pages.
class QtProfile {
public:
    /// In memory without a folder, or when the engine cannot use it. No other process may use the folder meanwhile, see
    /// `QtInstanceProfile`. `token` marks the lines that our script in the pages writes; `startPage` makes the home
    /// page, in UTF-8.
    QtProfile(const QString& folder, const QString& cacheFolder, const QString& token,
              std::function<std::string()> startPage);
    ~QtProfile();

    [[nodiscard]] QWebEngineProfile* Get() const { return m_profile.get(); }
    [[nodiscard]] QtDialogScheme& Dialogs() const { return *m_dialogs; }
    [[nodiscard]] QtStartPage& OwnPages() const { return *m_startPage; }
    /// What pages may load from now on.
    void SetLoadOptions(const QtLoadOptions& options);
    /// The same for a page that is there already.
    void TellLoadOptions(QWebEnginePage& page, const QtLoadOptions& options) const { m_loads.Tell(page, options); }

private:
    void InstallFrameWatch(const QString& token);
    void ApplySettings();

    QtLoadSwitches m_loads;
    std::unique_ptr<QtStartPage> m_startPage;
    std::unique_ptr<QtDialogScheme> m_dialogs;
    std::unique_ptr<QWebEngineProfile> m_profile;
};

} // namespace tessa::qt
