#pragma once
#include "qt/strip/TabList.h"
#include "qt/strip/TabStripView.h"
#include "tabs/TabStripInput.h"

#include <optional>
#include <vector>

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class Engine;

/// The strip of tabs and the list of them, and what they do in the program.
class StripAssembly final : private TabFaces, private TabStripInput::Places {
public:
    /// Both outlive it.
    StripAssembly(frmMain& main, Engine& engine);

    /// Drops the list of tabs down from the strip's end.
    void List();

    TabStripView strip;

private:
    [[nodiscard]] QIcon IconOf(const Tab& tab) const override;
    [[nodiscard]] Text TipOf(const Tab& tab) const override;
    [[nodiscard]] bool IsChanged(const TabGroup& group) const override;
    [[nodiscard]] TabPane PaneOf(const Tab& tab) const override;
    [[nodiscard]] Text NewTabKeys() const override;
    [[nodiscard]] int HitTest(Pixels x, Pixels y) override;
    void FollowClicks();
    void FollowPointer();
    void Choose(Tab& tab, Qt::KeyboardModifiers held);
    void ListTabs(QPoint corner);
    void MakeList();
    [[nodiscard]] std::vector<TabListEntry> Lines() const;

    frmMain& m_main;
    Engine& m_engine;
    std::optional<TabList> m_list; ///< once somebody has opened it
    Connections m_connections;
};

} // namespace tessa::qt
