#include "qt/program/DownloadAssembly.h"

#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"
#include "window/frmMain.h"

namespace tessa::qt {

QWebEngineProfile* PagesForDownloads::Profile() { return m_engine.Profiles().Get(); }

bool PagesForDownloads::MaySave(QWebEnginePage* page, const QUrl& address) {
    auto* view = m_engine.ViewOf(page);
    // Nobody sees what such a page would save.
    if (view && view->Unseen()) return false;
    return !view || view->Questions()->permissions.MaySave(address);
}

PageDocuments& PagesForDownloads::Documents() { return m_engine.Output().Documents(); }

DownloadAssembly::DownloadAssembly(Engine& engine) : m_pages(engine) {
    for (auto* made : {&engine.Profiles().Made, &engine.Profiles().PrivateMade})
        made->ConnectForLife([this](QWebEngineProfile& profile) { downloads.Follow(profile); });
    engine.Told().SaveAddress.ConnectForLife(
        [this](WebPage& page, const QUrl& address, const Text& path) { downloads.Save(page, address, path); });
}

void DownloadAssembly::Serve(frmMain& main, QMainWindow& window) {
    downloads.BringTo(main.Downloads());
    m_panel.emplace(main.DownloadPanel(), window);
    m_panel->FocusPage().ConnectForLife([&main] { main.FocusPage(); });
}

} // namespace tessa::qt
