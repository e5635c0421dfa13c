#include "qt/program/BarAssembly.h"

#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"
#include "qt/program/PageBarsAssembly.h"
#include "qt/questions/WebPageQuestions.h"
#include "qt/window/MainWindowFrame.h"
#include "window/frmMain.h"

namespace tessa::qt {

BarAssembly::BarAssembly(frmMain& main, MainWindowFrame& window, Around around)
    : m_around(around),
      m_look(main.actBar, window),
      m_commandBar(main.actBar, window, main.Menus(), *this),
      m_customize(main.actBar, window) {
    m_customize.Closed.ConnectForLife([&main] { main.SaveLayout(); });
    m_commandBar.Reveal.ConnectForLife([&window] { window.RevealBars(); });
    m_connections += m_around.engine.Told().MenuPlace.Connect(
        [this](std::optional<QPoint> at) { m_commandBar.Menus().PlaceNext(at); });
    m_commandBar.Ring().FocusPage.ConnectForLife([&main] { main.FocusPage(); });
}

std::vector<QWidget*> BarAssembly::PageBars() {
    return {&m_around.bars.captures, &m_around.bars.offer, &m_around.bars.findBar};
}

std::optional<FocusRing::Neighbours::Asked> BarAssembly::Question() {
    const auto* front = m_around.engine.Front();
    QuestionBar* asks = front && front->Questions() ? front->Questions()->bar.data() : nullptr;
    if (!asks || !asks->isVisible()) return std::nullopt;
    return Asked{asks, [asks] { asks->TakeFocus(); }};
}

} // namespace tessa::qt
