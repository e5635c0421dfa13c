#pragma once
#include "base/Signal.h"
#include "qt/questions/QtCaptureBar.h"
#include "qt/questions/QtNoticeBar.h"
#include "qt/window/QtFindBar.h"
#include "qt/window/QtPageBars.h"
#include "qt/window/QtSessionOffer.h"

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class QtEngine;

/// The bars above and below the page.
class QtPageBarsAssembly {
public:
    /// Both outlive it.
    QtPageBarsAssembly(QWidget* pageArea, const WallClock& clock);

    /// The bars are about that engine's pages, and make room beside them. Outlives the bars, or tells them nothing
    /// more.
    void FollowPages(QtEngine& engine);
    /// What is done in the bars is done there; outlives the bars.
    void Serve(frmMain& main);

    QtSessionOffer offer;
    QtFindBar findBar;
    QtNoticeBar notices;
    QtCaptureBar captures;
    QtPageBars bars;

private:
    Connections m_connections;
};

} // namespace tessa::qt
