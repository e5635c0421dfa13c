#pragma once
#include "qt/tiles/LinkedScroll.h"
#include "qt/tiles/TileArea.h"
#include "qt/window/FindBar.h"

namespace tessa {
class frmMain;
class MessageBoxes;
} // namespace tessa

namespace tessa::qt {

class Engine;
class TabStripView;

/// The panes in which pages lie side by side, and what they do in the program.
class TileAssembly final : private TileFaces, private FoundPages {
public:
    /// The pages' own parent and who asks the user; both outlive it.
    TileAssembly(QWidget* pageArea, MessageBoxes& messages);

    /// Shows the tabs of the window that lie side by side, with the engine's pages in the panes. Tabs can be dragged
    /// there from the strip. All outlive it, or tell it nothing more.
    void Serve(frmMain& main, Engine& engine, TabStripView& strip);
    /// It finds in the page in front, and in those linked with it.
    void Link(FindBar& findBar) { findBar.SearchIn(*this); }

    TileArea area;

private:
    [[nodiscard]] QIcon IconOf(const Tab& tab) const override;
    [[nodiscard]] QString TitleOf(const Tab& tab) const override;
    [[nodiscard]] bool MayShow(std::size_t count) const override;
    [[nodiscard]] std::vector<QWebEnginePage*> PagesToSearch() const override;
    void FollowStrip(TabStripView& strip);
    void ShowFrontAgain();
    void LinkPages();
    [[nodiscard]] std::vector<std::int32_t> Linked() const;

    MessageBoxes& m_messages;
    frmMain* m_main = nullptr;
    Engine* m_engine = nullptr;
    LinkedScroll m_scroll;
    QTimer m_laySoon;                         ///< once the tabs have told which pages are shown
    std::optional<std::int32_t> m_wasInFront; ///< while tabs are dragged outside the strip
    Connections m_connections;
};

} // namespace tessa::qt
