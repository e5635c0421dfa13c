#pragma once
#include "base/Signal.h"
#include "qt/questions/CaptureBar.h"
#include "qt/questions/NoticeBar.h"
#include "qt/window/FindBar.h"
#include "qt/window/PageBars.h"
#include "qt/window/SessionOfferBar.h"

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class Engine;

/// The bars above and below the page.
class PageBarsAssembly {
public:
    /// Both outlive it.
    PageBarsAssembly(QWidget* pageArea, const WallClock& clock);

    /// The bars are about that engine's pages, and make room beside them. Outlives the bars, or tells them nothing
    /// more.
    void FollowPages(Engine& engine);
    /// What is done in the bars is done there; outlives the bars.
    void Serve(frmMain& main);

    SessionOfferBar offer;
    FindBar findBar;
    NoticeBar notices;
    CaptureBar captures;
    PageBars bars;

private:
    Connections m_connections;
};

} // namespace tessa::qt
