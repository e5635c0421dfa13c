#include "qt/program/QtBarAssembly.h"

#include "qt/engine/QtBrowserView.h"
#include "qt/engine/QtEngine.h"
#include "qt/program/QtPageBarsAssembly.h"
#include "qt/questions/QtPageQuestions.h"
#include "qt/window/QtMainWindow.h"
#include "window/frmMain.h"

namespace tessa::qt {

QtBarAssembly::QtBarAssembly(frmMain& main, QtMainWindow& window, QtEngine& engine)
    : m_look(main.actBar, window), m_commandBar(main.actBar, window), m_customize(main.actBar, window) {
    m_customize.Closed.ConnectForLife([&main] { main.SaveLayout(); });
    m_commandBar.Reveal.ConnectForLife([&window] { window.RevealBars(); });
    m_connections +=
        engine.Told().MenuPlace.Connect([this](std::optional<QPoint> at) { m_commandBar.Menus().PlaceNext(at); });
    FollowMenus(main);
    FollowRing(main, engine);
}

void QtBarAssembly::FollowMenus(frmMain& main) {
    auto& menus = m_commandBar.Menus();
    menus.EntryPopup = [&main](const Tool& tool) { return main.Menus().EntryPopup(tool); };
    menus.EntryMiddleClick = [&main](const Tool& tool) { return main.Menus().EntryMiddleClick(tool); };
    menus.EntryDelete = [&main](const Tool& tool) { return main.Menus().EntryDelete(tool); };
}

void QtBarAssembly::FollowRing(frmMain& main, QtEngine& engine) {
    auto& ring = m_commandBar.Ring();
    ring.FocusPage.ConnectForLife([&main] { main.FocusPage(); });
    ring.Question = [&engine]() -> std::optional<QtFocusRing::Asked> {
        const auto* front = engine.Front();
        QtQuestionBar* asks = front && front->Questions() ? front->Questions()->bar.data() : nullptr;
        if (!asks || !asks->isVisible()) return std::nullopt;
        return QtFocusRing::Asked{asks, [asks] { asks->TakeFocus(); }};
    };
}

void QtBarAssembly::LeadTo(QWidget& strip, QWidget& statusBar, QtPageBarsAssembly& bars) {
    auto& ring = m_commandBar.Ring();
    ring.Strip = &strip;
    ring.StatusBar = &statusBar;
    ring.PageBars = {&bars.captures, &bars.offer, &bars.findBar};
}

} // namespace tessa::qt
