#include "qt/program/PageBarsAssembly.h"

#include "qt/engine/Engine.h"
#include "qt/page/WebPage.h"
#include "window/frmMain.h"

namespace tessa::qt {

PageBarsAssembly::PageBarsAssembly(QWidget* pageArea, const WallClock& clock)
    : offer(pageArea, clock), findBar(pageArea), notices(pageArea), captures(pageArea) {
    bars.Add(captures, PageBars::Side::Above);
    bars.Add(offer, PageBars::Side::Above);
    bars.Add(findBar, PageBars::Side::Below);
    bars.Add(notices, PageBars::Side::Below);
}

void PageBarsAssembly::FollowPages(Engine& engine) {
    for (auto* changed : {&notices.Changed, &captures.Changed, &offer.Changed, &findBar.Changed})
        changed->ConnectForLife([&engine] { engine.Relayout(); });
    captures.Stop.ConnectForLife([&engine] { engine.StopCaptures(); });
    m_connections += engine.Told().CapturesChanged.Connect([this, &engine] { captures.Tell(engine.Captures()); });
    m_connections += engine.Schedule().FrontChanged.Connect([this] { findBar.OnPageChanged(); });
}

void PageBarsAssembly::Serve(frmMain& main) {
    offer.Reopen.ConnectForLife([&main](const Text& id) { main.Sessions().Reopen(id); });
    offer.Dismiss.ConnectForLife([&main](const Text& id) { main.Sessions().Settle(id); });
    offer.ShowAll.ConnectForLife([&main] { main.ShowSessions(); });
    findBar.Typed.ConnectForLife([&main] { main.actBar.NoteTyped(); });
    findBar.FocusPage.ConnectForLife([&main] { main.FocusPage(); });
}

} // namespace tessa::qt
