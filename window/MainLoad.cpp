#include "window/MainLoad.h"

#include "bar/ToolName.h"
#include "base/LinkTrust.h"
#include "settings/InternetSettings.h"
#include "settings/SettingsStore.h"
#include "window/frmDefBrowser.h"
#include "window/frmMain.h"

#include <algorithm>
#include <array>

namespace {

constexpr Twips kSmallestHeight{4000};
constexpr Twips kSmallestWidth{6000};
constexpr std::array kDisabledAtStart{u"mnuGoBack"_tool, u"mnuGoForward"_tool, u"mnuStop"_tool, u"mnuRefresh"_tool};

void PlaceTabs(frmMain& main, const SettingsStore& store) {
    main.pcPage.SetPlacement(store.TabsUp.Get() ? TabPlacement::Top : TabPlacement::Bottom);
}

void AskDefaultBrowser(MainWindowPlatform& platform) {
    if (platform.defaultBrowser.IsDefault(frmDefBrowser::kProgramName, platform.programPath)) return;
    frmDefBrowser form(platform.settings, platform.defaultBrowser, platform.programPath);
    platform.forms.Show(form);
}

enum class EmptyEntries : bool { LeftOut, Kept };

void RestoreHistory(ComboTool* box, std::vector<Text> history, EmptyEntries empty) {
    // Deliberate: a history that was stored with a single entry is not restored.
    if (!box || history.size() < 2) return;
    if (empty == EmptyEntries::LeftOut) std::erase(history, Text());
    box->List = std::move(history);
}

void RestoreHistories(frmMain& main, const SettingsStore& store) {
    RestoreHistory(main.AddressCombo(), store.AddressHistory.Get(), EmptyEntries::Kept);
    RestoreHistory(main.SearchCombo(), store.SearchHistory.Get(), EmptyEntries::LeftOut);
}

void CopyLiveSettings(frmMain& main, const SettingsStore& store) {
    main.OpenNewInFront = store.OpenNewInFront.Get();
    main.Tabs.TitleLengthLimit = store.TitleLengthLimit.Get();
    main.TGCloseOthersFirst = store.TGCloseOthersFirst.Get();
}

Placement StoredPlacement(const SettingsStore& store, const MainWindow& window) {
    Placement place;
    place.left = std::max(Saturated16(store.WindowLeft.Get()), Twips{0});
    place.top = std::max(Saturated16(store.WindowTop.Get()), Twips{0});
    place.height = std::max(Saturated16(store.WindowHeight.Get()), kSmallestHeight);
    place.width = std::max(Saturated16(store.WindowWidth.Get()), kSmallestWidth);
    // Deliberate: strictly greater, a top equal to the screen's height is kept.
    if (place.top > window.ScreenHeight()) place.top = {0};
    if (place.left > window.ScreenWidth()) place.left = {0};
    return place;
}

void PlaceWindow(MainWindow& window, const SettingsStore& store) {
    if (store.WindowMaximized.Get()) {
        window.SetState(WindowState::Maximized);
        return;
    }
    window.SetState(WindowState::Normal);
    const Placement place = StoredPlacement(store, window);
    // A window that was never placed gets its size from us and its place from the desktop.
    if (store.WindowLeft.HasValue() || store.WindowTop.HasValue())
        window.SetPlace(place);
    else
        window.SetSize(place.width, place.height);
}

} // namespace

namespace MainLoad {

void Prepare(frmMain& main) {
    main.Layout.Load();
    main.actBar.RecalcLayout();
    main.Pages.ShowLoadOptions();
    main.Menus.KeepPictures();
    bool ask = false;
    {
        const SettingsStore store(main.Platform.settings);
        PlaceTabs(main, store);
        ask = store.AskDefaultBrowser.Get();
    }
    // No store is held while the question is open: it writes through one of its own.
    if (ask) AskDefaultBrowser(main.Platform);
    const SettingsStore store(main.Platform.settings);
    main.RememberLastSites = store.RememberLastSites.Get();
    RestoreHistories(main, store);
    main.Tabs.ShowStatusBar(store.ShowStatusBar.Get());
    for (const ToolName name : kDisabledAtStart) {
        if (auto* tool = main.actBar.Find(name)) tool->Enabled = false;
    }
}

void Restore(frmMain& main) {
    const SettingsStore store(main.Platform.settings);
    PlaceWindow(main.Platform.window, store);
    CopyLiveSettings(main, store);
    ApplySleep(main);
}

void ApplySettings(frmMain& main) {
    const SettingsStore store(main.Platform.settings);
    PlaceTabs(main, store);
    main.Form_Resize();
    main.RememberLastSites = store.RememberLastSites.Get();
    CopyLiveSettings(main, store);
}

void ApplySleep(frmMain& main) {
    const InternetValues values = InternetSettings(main.Platform.settings).Get();
    main.Sleep.SetPatience(values.tabsSleep ? std::chrono::minutes(values.sleepMinutes) : std::chrono::minutes(0));
}

void ReopenLastSites(frmMain& main) {
    std::vector<Text> sites = SettingsStore(main.Platform.settings).LastSites.Get();
    // Deliberate: a session of one tab is not reopened.
    if (sites.size() < 2) return;
    for (Text& site : sites) {
        if (TrustOf(site, LinkSource::Session) != LinkTrust::Open) site.clear();
    }
    auto* first = main.Browser.Find(1);
    if (first && !sites.front().empty()) {
        ResumeNext(first->Control->Stop());
        ResumeNext(first->Control->Navigate(sites.front()));
        main.Sessions.CameBack.Note(1, sites.front());
    }
    for (std::size_t i = 1; i < sites.size(); ++i) {
        if (sites[i].empty()) continue;
        auto* view = main.GetNewBrowser(InFront::Yes);
        if (!view) continue;
        ResumeNext(view->Navigate(sites[i]));
        main.Sessions.CameBack.Note(main.Tabs.CurrentIndex(), sites[i]);
    }
}

} // namespace MainLoad
