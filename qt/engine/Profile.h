#pragma once
#include "qt/engine/LoadSwitches.h"

#include <QString>
#include <functional>
#include <memory>
#include <string>

class QWebEnginePage;
class QWebEngineProfile;

namespace tessa::qt {

class DialogScheme;
class StartPageScheme;

/// The engine's profile: cookies, storage and cache of all pages.
class Profile {
public:
    /// In memory without a folder, or when the engine cannot use it. No other process may use the folder meanwhile, see
    /// `InstanceProfile`. `token` marks the lines that our script in the pages writes; `startPage` makes the home
    /// page, in UTF-8.
    Profile(const QString& folder, const QString& cacheFolder, const QString& token,
            std::function<std::string()> startPage);
    ~Profile();

    [[nodiscard]] QWebEngineProfile* Get() const { return m_profile.get(); }
    [[nodiscard]] DialogScheme& Dialogs() const { return *m_dialogs; }
    [[nodiscard]] StartPageScheme& OwnPages() const { return *m_startPage; }
    /// What pages may load from now on.
    void SetLoadOptions(const LoadOptions& options);
    /// The same for a page that is there already.
    void TellLoadOptions(QWebEnginePage& page, const LoadOptions& options) const { m_loads.Tell(page, options); }

private:
    void InstallFrameWatch(const QString& token);
    void ApplySettings();

    LoadSwitches m_loads;
    std::unique_ptr<StartPageScheme> m_startPage;
    std::unique_ptr<DialogScheme> m_dialogs;
    std::unique_ptr<QWebEngineProfile> m_profile;
};

} // namespace tessa::qt
