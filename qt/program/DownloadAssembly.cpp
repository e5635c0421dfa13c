#include "qt/program/DownloadAssembly.h"

#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"
#include "window/frmMain.h"

namespace tessa::qt {

DownloadAssembly::DownloadAssembly(Engine& engine) {
    downloads.Documents = &engine.Output().Documents();
    downloads.Profile = [&engine] { return engine.Profiles().Get(); };
    downloads.MaySave = [&engine](QWebEnginePage* page, const QUrl& address) {
        auto* view = engine.ViewOf(page);
        return !view || view->Questions()->permissions.MaySave(address);
    };
    for (auto* made : {&engine.Profiles().Made, &engine.Profiles().PrivateMade})
        made->ConnectForLife([this](QWebEngineProfile& profile) { downloads.Follow(profile); });
    engine.Told().SaveAddress.ConnectForLife(
        [this](WebPage& page, const QUrl& address, const Text& path) { downloads.Save(page, address, path); });
}

void DownloadAssembly::Serve(frmMain& main, QMainWindow& window) {
    downloads.List = &main.Downloads();
    m_panel.emplace(main.DownloadPanel(), window);
    m_panel->FocusPage.ConnectForLife([&main] { main.FocusPage(); });
}

} // namespace tessa::qt
