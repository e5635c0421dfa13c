#pragma once
#include "qt/strip/QtTabList.h"
#include "qt/strip/QtTabStrip.h"

#include <optional>
#include <vector>

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class QtEngine;

/// The strip of tabs and the list of them, and what they do in the program.
class QtStripAssembly {
public:
    /// Both outlive it.
    QtStripAssembly(frmMain& main, QtEngine& engine);

    /// Drops the list of tabs down from the strip's end.
    void List();

    QtTabStrip strip;

private:
    void FollowClicks();
    void FollowPointer();
    void ListTabs(QPoint corner);
    void MakeList();
    [[nodiscard]] std::vector<QtTabListEntry> Lines() const;

    frmMain& m_main;
    QtEngine& m_engine;
    std::optional<QtTabList> m_list; ///< once somebody has opened it
    Connections m_connections;
};

} // namespace tessa::qt
