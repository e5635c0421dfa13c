#include "qt/program/TileAssembly.h"

#include "commands/effects/TileCommands.h"
#include "qt/base/Strings.h"
#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"
#include "qt/page/WebPage.h"
#include "qt/strip/TabStripView.h"
#include "tabs/TabKeys.h"
#include "window/frmMain.h"

#include <algorithm>
#include <utility>

namespace tessa::qt {

TileAssembly::TileAssembly(QWidget* pageArea, MessageBoxes& messages) : area(pageArea), m_messages(messages) {
    m_laySoon.setSingleShot(true);
    m_laySoon.setInterval(0);
    m_laySoon.callOnTimeout([this] {
        m_engine->Relayout();
        LinkPages();
    });
}

void TileAssembly::Serve(frmMain& main, Engine& engine, TabStripView& strip) {
    m_main = &main;
    m_engine = &engine;
    area.CloseRequested.ConnectForLife([&main](std::int32_t index) { main.CloseBrowserTab(index); });
    area.MenuRequested.ConnectForLife([&main](std::int32_t index) {
        main.StripInput().OpenPopup(main.pcPage.PositionOf(TabOfView(main.pcPage, index)));
    });
    area.Changed.ConnectForLife([this] { m_laySoon.start(); });
    m_connections += engine.Schedule().ShownChanged.Connect([this] {
        if (!area.isHidden()) m_laySoon.start();
    });
    m_connections += engine.Told().IconChanged.Connect([this](std::int32_t) {
        if (!area.isHidden()) area.RefreshFaces();
    });
    FollowStrip(strip);
    area.Attach(main.Tiles(), main.pcPage, *this);
}

QIcon TileAssembly::IconOf(const Tab& tab) const { return m_engine->Icon(tab.Tag); }

QString TileAssembly::TitleOf(const Tab& tab) const {
    return ToQt(m_main->Tabs().Describe(tab)).section(QLatin1Char('\n'), 0, 0);
}

bool TileAssembly::MayShow(std::size_t count) const { return TileCommands::MayShow(m_messages, count); }

void TileAssembly::FollowStrip(TabStripView& strip) {
    using Views = TabStripView::Views;
    strip.DraggedOut.ConnectForLife([this](const Views& views, QPoint at) {
        // What is dragged is not what it is dragged onto: pressing the tab has brought it to the front.
        if (!m_wasInFront) {
            m_wasInFront = m_main->Tabs().CurrentIndex();
            m_main->Tiles().BeginDrag(views.front());
        }
        area.ShowDrop(views.front(), at);
    });
    strip.DraggedBack.ConnectForLife([this](const Views&) {
        area.HideDrop();
        ShowFrontAgain();
    });
    strip.DroppedOut.ConnectForLife([this](const Views& views, QPoint at) {
        if (area.Drop(views, at))
            m_wasInFront.reset();
        else
            ShowFrontAgain();
    });
}

void TileAssembly::ShowFrontAgain() {
    auto* tab = TabOfView(m_main->pcPage, std::exchange(m_wasInFront, std::nullopt).value_or(0));
    if (tab) m_main->pcPage.Select(tab);
}

std::vector<std::int32_t> TileAssembly::Linked() const {
    return m_main ? m_main->Tiles().LinkedWith(m_main->Tiles().Focus()) : std::vector<std::int32_t>();
}

void TileAssembly::LinkPages() {
    std::vector<QWebEngineView*> views;
    auto linked = Linked();
    if (!linked.empty()) linked.push_back(m_main->Tiles().Focus());
    std::ranges::sort(linked);
    for (const std::int32_t each : linked) {
        const auto* view = m_engine->Find(each);
        if (view && view->Widget()) views.push_back(view->Widget());
    }
    m_scroll.Link(views);
}

std::vector<QWebEnginePage*> TileAssembly::PagesToSearch() const {
    std::vector<QWebEnginePage*> pages;
    if (auto* front = m_engine ? m_engine->FrontPage() : nullptr) pages.push_back(front);
    for (const std::int32_t each : Linked()) {
        const auto* view = m_engine->Find(each);
        if (view && view->Page()) pages.push_back(view->Page());
    }
    return pages;
}

} // namespace tessa::qt
