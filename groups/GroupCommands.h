#pragma once
#include "tabs/TabSet.h"

/// What the main window does with TessaGroups. Owned by the main window.
class GroupCommands {
public:
    /// `tabs` outlives this object.
    explicit GroupCommands(TabSet& tabs) : m_tabs(tabs) {}

    /// Opens every address of a group file (its full path), one tab an address, the last one in front. With
    /// `TGCloseOthersFirst` only the leftmost tab stays, and shows the first address. A file that cannot be read is a
    /// group without addresses.
    void OpenTessaGroup(TextView TessaGroup);

    /// Whether the other tabs are closed when a group is opened.
    bool TGCloseOthersFirst = false;

private:
    TabSet& m_tabs;
};
