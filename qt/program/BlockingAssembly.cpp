#include "qt/program/BlockingAssembly.h"

#include "blocking/ListCatalogue.h"
#include "platform/WallClock.h"
#include "qt/blocking/BlockedDialog.h"
#include "qt/blocking/PickedDialog.h"
#include "qt/engine/Engine.h"
#include "qt/page/WebPage.h"
#include "qt/window/StatusBarView.h"
#include "window/frmMain.h"

namespace tessa::qt {

BlockingAssembly::BlockingAssembly(SettingsStorageFactory& settings, const QString& folder, const WallClock& clock)
    : blocker(settings, folder), m_clock(clock) {}

void BlockingAssembly::Follow(Engine& engine) {
    m_engine = &engine;
    for (auto* made : {&engine.Profiles().Made, &engine.Profiles().PrivateMade})
        made->ConnectForLife([this](QWebEngineProfile& profile) {
            m_hiding.Follow(profile);
            m_empty.Follow(profile);
        });
    engine.Profiles().PageMade.ConnectForLife([this](WebPage& page) { pages.Follow(page); });
    engine.Windows().HoldAgainst(pages);
    m_updates.emplace(blocker, [&engine] { return !engine.Schedule().PagesWait(); });
    m_hiding.Picked.ConnectForLife([this](const QString& selector) { ShowPicked(selector); });
}

void BlockingAssembly::Serve(frmMain& main, StatusBarView& bar, QWidget& window) {
    m_main = &main;
    m_window = &window;
    m_menu.emplace(blocker, pages, main.sbStatus, [this]() -> QWebEnginePage* { return m_engine->FrontPage(); });
    main.sbStatus.Blocked.Click.ConnectForLife([this, &bar] { m_menu->Open(bar.BlockedSign()); });
    m_engine->Schedule().FrontChanged.ConnectForLife([this] { m_menu->Follow(); });
    m_menu->Picks.ConnectForLife([this](QWebEnginePage& page) { Pick(page); });
    m_menu->ShowsBlocked.ConnectForLife(
        [this](QWebEnginePage& page) { (new BlockedDialog(pages.On(&page), pages.Count(&page), m_window))->show(); });
    m_menu->ShowsOptions.ConnectForLife([&main] { main.ShowInternetOptions(); });
}

void BlockingAssembly::Pick(QWebEnginePage& page) {
    m_picking = &page;
    m_main->sbStatus.Say(u"Click on what is to be hidden. Escape gives up.");
    m_main->FocusPage();
    m_hiding.Pick(page);
}

void BlockingAssembly::ShowPicked(const QString& selector) {
    m_main->sbStatus.Withdraw();
    if (!m_picking || selector.isEmpty()) return;
    auto* dialog = new PickedDialog(blocker, m_hiding, *m_picking, selector, m_window);
    dialog->Done.ConnectForLife([this](bool kept) {
        if (!kept) m_main->sbStatus.Complaint(u"The rule could not be kept.");
    });
    dialog->PicksAgain.ConnectForLife([this] {
        if (m_picking) Pick(*m_picking);
    });
    dialog->show();
}

Text BlockingAssembly::StateOf(TextView chosen) {
    const Text source = ListCatalogue::SourceOf(chosen);
    const std::int64_t fetched = blocker.Shelf().Find(source).Fetched;
    const auto counts = blocker.CountsOf(chosen);
    if (counts && ListCatalogue::IsFetched(source) && fetched == 0) return u"It has not come yet.";
    Text words;
    if (counts) {
        words = Decimal(static_cast<std::int64_t>(counts->Rules)) + u" rules";
        if (counts->Unknown > 0)
            words += u", " + Decimal(static_cast<std::int64_t>(counts->Unknown)) + u" lines are not understood";
        words += u".";
    }
    if (ListCatalogue::IsFetched(source) && fetched > 0)
        words += (words.empty() ? u"From " : u" From ") + m_clock.Words(fetched) + u".";
    return words;
}

void BlockingAssembly::KeepOwnRules(TextView rules) {
    if (blocker.Shelf().KeepOwnRules(rules) == Outcome::Failed)
        m_main->sbStatus.Complaint(u"Your own rules could not be saved.");
    blocker.ReadLists();
}

} // namespace tessa::qt
