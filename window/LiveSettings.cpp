#include "window/LiveSettings.h"

#include "settings/InternetSettings.h"

#include <chrono>

namespace tessa {

void LiveSettings::PlaceTabs(const SettingsStore& store) {
    m_places.pcPage.SetPlacement(store.TabsUp.Get() ? TabPlacement::Top : TabPlacement::Bottom);
}

void LiveSettings::Copy(const SettingsStore& store) {
    m_places.tabs.OpenNewInFront = store.OpenNewInFront.Get();
    m_places.tabs.TitleLengthLimit = store.TitleLengthLimit.Get();
    m_places.groups.TGCloseOthersFirst = store.TGCloseOthersFirst.Get();
}

void LiveSettings::ApplySleep() {
    const InternetValues values = InternetSettings(m_settings).Get();
    m_places.sleep.SetPatience(values.tabsSleep ? std::chrono::minutes(values.sleepMinutes) : std::chrono::minutes(0));
}

void LiveSettings::ApplyHistory() {
    m_places.reads.SetOptions(HistoryRules::OptionsOf(HistorySettings(m_settings).Get()));
}

void LiveSettings::Changed() {
    const SettingsStore store(m_settings);
    PlaceTabs(store);
    m_places.tabs.Resize();
    RememberLastSites = store.RememberLastSites.Get();
    Copy(store);
}

void LiveSettings::Save(SettingsStore& store) const {
    ResumeNext(store.OpenNewInFront.Set(m_places.tabs.OpenNewInFront));
    ResumeNext(store.TitleLengthLimit.Set(m_places.tabs.TitleLengthLimit));
    ResumeNext(store.RememberLastSites.Set(RememberLastSites));
    ResumeNext(store.TabsUp.Set(m_places.pcPage.Placement() == TabPlacement::Top));
}

} // namespace tessa
