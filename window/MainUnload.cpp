#include "window/MainUnload.h"

#include "base/Address.h"
#include "settings/SettingsStore.h"
#include "window/frmMain.h"

namespace {

std::vector<Text> OpenAddresses(frmMain& main) {
    std::vector<Text> sites;
    for (std::size_t position = 1; position <= main.pcPage.Count(); ++position) {
        const auto* view = main.Browser.Find(main.pcPage.FindAt(position)->Tag);
        if (view && view->Privacy == Privacy::Private) continue;
        const Text address = view ? view->Control->LocationURL() : Text();
        if (Address::ComesBack(address)) sites.push_back(address);
    }
    return sites;
}

std::vector<Text> History(const ComboTool* box) { return box ? box->List() : std::vector<Text>(); }

void SavePlacement(SettingsStore& store, const MainWindow& window) {
    ResumeNext(store.WindowMaximized.Set(window.State() == WindowState::Maximized));
    if (window.State() == WindowState::Minimized) return;
    const Placement place = window.Place();
    ResumeNext(store.WindowTop.Set(place.top));
    ResumeNext(store.WindowLeft.Set(place.left));
    ResumeNext(store.WindowWidth.Set(place.width));
    ResumeNext(store.WindowHeight.Set(place.height));
}

void SaveSettings(frmMain& main) {
    const std::vector<Text> searches = History(main.SearchCombo());
    const std::vector<Text> sites = OpenAddresses(main);
    const std::vector<Text> addresses = History(main.AddressCombo());
    SettingsStore store(main.Platform.settings);
    SavePlacement(store, main.Platform.window);
    ResumeNext(store.OpenNewInFront.Set(main.OpenNewInFront));
    ResumeNext(store.TitleLengthLimit.Set(main.Tabs.TitleLengthLimit));
    ResumeNext(store.RememberLastSites.Set(main.RememberLastSites));
    ResumeNext(store.TabsUp.Set(main.pcPage.Placement() == TabPlacement::Top));
    ResumeNext(store.LastSites.Set(sites));
    ResumeNext(store.SearchHistory.Set(searches));
    ResumeNext(store.AddressHistory.Set(addresses));
    ResumeNext(store.ShowStatusBar.Set(main.sbStatus.Visible()));
}

} // namespace

namespace MainUnload {

void Save(frmMain& main) {
    SaveSettings(main);
    main.actBar.RemoveRunTimeBands();
    main.Layout.Save();
}

} // namespace MainUnload
