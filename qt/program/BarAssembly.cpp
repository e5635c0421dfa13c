#include "qt/program/BarAssembly.h"

#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"
#include "qt/program/PageBarsAssembly.h"
#include "qt/questions/WebPageQuestions.h"
#include "qt/window/MainWindowFrame.h"
#include "window/frmMain.h"

namespace tessa::qt {

BarAssembly::BarAssembly(frmMain& main, MainWindowFrame& window, Engine& engine)
    : m_look(main.actBar, window), m_commandBar(main.actBar, window, main.Menus()), m_customize(main.actBar, window) {
    m_customize.Closed.ConnectForLife([&main] { main.SaveLayout(); });
    m_commandBar.Reveal.ConnectForLife([&window] { window.RevealBars(); });
    m_connections +=
        engine.Told().MenuPlace.Connect([this](std::optional<QPoint> at) { m_commandBar.Menus().PlaceNext(at); });
    FollowRing(main, engine);
}

void BarAssembly::FollowRing(frmMain& main, Engine& engine) {
    auto& ring = m_commandBar.Ring();
    ring.FocusPage.ConnectForLife([&main] { main.FocusPage(); });
    ring.Question = [&engine]() -> std::optional<FocusRing::Asked> {
        const auto* front = engine.Front();
        QuestionBar* asks = front && front->Questions() ? front->Questions()->bar.data() : nullptr;
        if (!asks || !asks->isVisible()) return std::nullopt;
        return FocusRing::Asked{asks, [asks] { asks->TakeFocus(); }};
    };
}

void BarAssembly::LeadTo(QWidget& strip, QWidget& statusBar, PageBarsAssembly& bars) {
    auto& ring = m_commandBar.Ring();
    ring.Strip = &strip;
    ring.StatusBar = &statusBar;
    ring.PageBars = {&bars.captures, &bars.offer, &bars.findBar};
}

} // namespace tessa::qt
