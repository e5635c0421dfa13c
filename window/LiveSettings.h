#pragma once
#include "forms/TabStrip.h"
#include "groups/GroupCommands.h"
#include "history/ReadPages.h"
#include "settings/SettingsStore.h"
#include "tabs/TabSet.h"
#include "tabs/TabSleep.h"

namespace tessa {

/// Settings that are read once and then live where they take effect, until the window saves them. Owned by the main
/// window.
class LiveSettings {
public:
    /// Where they take effect; all of it outlives this object.
    struct Places {
        TabStrip& pcPage;
        TabSet& tabs;
        GroupCommands& groups;
        TabSleep& sleep;
        ReadPages& reads;
    };
    LiveSettings(Places places, SettingsStorageFactory& settings) : m_places(places), m_settings(settings) {}

    /// Puts the tabs above or below their pages.
    void PlaceTabs(const SettingsStore& store);
    /// Brings in what holds for new tabs, titles and groups.
    void Copy(const SettingsStore& store);
    /// Lets tabs sleep, or not, as the user has set it.
    void ApplySleep();
    /// Remembers what is read, or not, as the user has set it.
    void ApplyHistory();
    /// The settings were changed in their dialog: brings them into effect.
    void Changed();
    /// Stores them again, as they are now.
    void Save(SettingsStore& store) const;

    /// Whether the next start opens the addresses of this one.
    bool RememberLastSites = true;

private:
    Places m_places;
    SettingsStorageFactory& m_settings;
};

} // namespace tessa
