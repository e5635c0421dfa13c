#pragma once
#include "common/CommandBar.h"
#include "common/platform/LayoutFile.h"
#include "tabs/TabSet.h"

/// Keeps the command bar's layout in its file from one run to the next. What goes wrong is said in the status bar.
class LayoutKeeper {
public:
    /// All outlive it.
    LayoutKeeper(CommandBar& actBar, LayoutFile& file, TabSet& tabs) : m_actBar(actBar), m_file(file), m_tabs(tabs) {}

    /// Arranges the bar, which is as designed, like the file says. One that is missing or cannot be read changes
    /// nothing.
    void Load();
    /// Writes the layout. A file that could not be read is replaced only when the user has arranged something since,
    /// so that a passing trouble does not cost the layout that is in it.
    void Save();

private:
    CommandBar& m_actBar;
    LayoutFile& m_file;
    TabSet& m_tabs;
    bool m_unread = false;
    std::string m_loaded; ///< the layout as it was after loading
};
