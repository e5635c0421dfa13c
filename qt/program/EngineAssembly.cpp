#include "qt/program/EngineAssembly.h"

#include "pages/DecidedSites.h"
#include "qt/base/Strings.h"
#include "qt/desktop/ScreenReader.h"
#include "qt/page/WebPage.h"
#include "qt/program/BlockingAssembly.h"
#include "qt/program/DesktopAssembly.h"
#include "qt/program/PageBarsAssembly.h"
#include "qt/window/MainWindowFrame.h"
#include "settings/SettingsStore.h"
#include "window/frmMain.h"

namespace tessa::qt {

namespace {

ServiceTemplates ChosenServices(SettingsStorageFactory& settings) {
    const SettingsStore store(settings);
    return {store.SearchService.Get(), store.ShopService.Get(), store.FindService.Get()};
}

} // namespace

EngineAssembly::EngineAssembly(DesktopAssembly& desktop, MainWindowFrame& window, PageBarsAssembly& bars,
                               TileArea& tiles, BlockingAssembly& blocking)
    : m_desktop(desktop),
      m_permissions(desktop.settings),
      m_mediaKeys([this] { return engine.MediaPage(); }),
      m_requests([&desktop] { return ChosenServices(desktop.settings); }, &blocking.pages),
      m_notifications(bars.notices),
      m_surroundings(desktop.settings, m_permissions, window, bars.bars, tiles,
                     {FromQt(desktop.folders.GroupFolder()), FromQt(desktop.folders.favorites)}),
      devTools(window),
      engine(window.PageArea(), desktop.OwnProfile(), m_surroundings),
      options(desktop.settings, engine, m_requests, m_browsingData) {
    bars.FollowPages(engine);
    blocking.Follow(engine);
    options.Applied.ConnectForLife([&blocking] { blocking.blocker.Apply(); });
    m_permissions.Forgotten.ConnectForLife([this](const SiteDecision& site) { engine.ForgetDecision(site); });
    m_notifications.Clicked.ConnectForLife([&window] { window.ComeBack(); });
    engine.Told().ShowInspector.ConnectForLife([this](WebPage& page) { devTools.Show(page); });
    for (auto* made : {&engine.Profiles().Made, &engine.Profiles().PrivateMade}) {
        made->ConnectForLife([this](QWebEngineProfile& profile) {
            m_notifications.Follow(profile);
            if (m_dictionaries) m_dictionaries->Follow(profile);
        });
    }
}

void EngineAssembly::Serve(frmMain& main) {
    // Before they are read, so that no change falls in between.
    m_surroundings.AddFacts.ConnectForLife([&main](StartContent& content) { main.AddHomeFacts(content); });
    m_surroundings.ReadsFolders.ConnectForLife([&main] { main.Menus().WatchFolders(); });
    engine.Told().StartLink.ConnectForLife(
        [&main](const QUrl& url) { main.OpenStartLink(url.toEncoded().toStdString()); });
    engine.Output().Say.ConnectForLife([&main](const QString& message) { main.sbStatus.Say(FromQt(message)); });
}

void EngineAssembly::Start() {
    m_dictionaries.emplace(Dictionaries::OfThisComputer(m_desktop.folders.cache));
    ScreenReader::Prepare();
    // The very first request goes the way that the user wants.
    options.ApplyInternetOptions();
    engine.Start();
}

bool EngineAssembly::Shutdown() {
    m_browsingData.Shutdown();
    return engine.Shutdown();
}

SiteChoices EngineAssembly::Sites() { return DecidedSites(m_permissions, engine.Profiles().External()); }

} // namespace tessa::qt
