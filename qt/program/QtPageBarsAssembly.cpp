#include "qt/program/QtPageBarsAssembly.h"

#include "qt/engine/QtEngine.h"
#include "qt/page/QtPage.h"
#include "window/frmMain.h"

namespace tessa::qt {

QtPageBarsAssembly::QtPageBarsAssembly(QWidget* pageArea, const WallClock& clock)
    : offer(pageArea, clock), findBar(pageArea), notices(pageArea), captures(pageArea) {
    bars.Add(captures, QtPageBars::Side::Above);
    bars.Add(offer, QtPageBars::Side::Above);
    bars.Add(findBar, QtPageBars::Side::Below);
    bars.Add(notices, QtPageBars::Side::Below);
}

void QtPageBarsAssembly::FollowPages(QtEngine& engine) {
    for (auto* changed : {&notices.Changed, &captures.Changed, &offer.Changed, &findBar.Changed})
        changed->ConnectForLife([&engine] { engine.Relayout(); });
    captures.Stop.ConnectForLife([&engine] { engine.StopCaptures(); });
    m_connections += engine.Told().CapturesChanged.Connect([this, &engine] { captures.Tell(engine.Captures()); });
    findBar.Page = [&engine] { return engine.FrontPage(); };
    m_connections += engine.Schedule().FrontChanged.Connect([this] { findBar.OnPageChanged(); });
}

void QtPageBarsAssembly::Serve(frmMain& main) {
    offer.Reopen.ConnectForLife([&main](const Text& id) { main.Sessions().Reopen(id); });
    offer.Dismiss.ConnectForLife([&main](const Text& id) { main.Sessions().Settle(id); });
    offer.ShowAll.ConnectForLife([&main] { main.ShowSessions(); });
    findBar.Typed.ConnectForLife([&main] { main.actBar.NoteTyped(); });
    findBar.FocusPage.ConnectForLife([&main] { main.FocusPage(); });
}

} // namespace tessa::qt
