#pragma once
#include "tabs/TabSet.h"

namespace tessa {

/// What the address box and the search box do with keys, typing and a choice from their lists. Keeps each box's text
/// before the caret and whether Enter still has an entry to add. Owned by the main window; what it refers to outlives
/// it.
class AddressBoxes {
public:
    /// Answers the command bar's events of the two boxes from now on.
    AddressBoxes(TabSet& tabs, CommandBar& actBar);

    /// Adds to the address history once after Enter was pressed in the address box; else does nothing.
    void AddAddressEntry(TextView text);
    /// The same for the search box.
    void AddSearchEntry(TextView text);

private:
    struct Box {
        Text PrevText;
        bool EntryPending = false;
    };

    KeyUsed ComboKeyDown(ComboTool& box, KeyStroke key);
    KeyUsed AddressKey(ComboTool& box, KeyStroke key);
    KeyUsed SearchKey(ComboTool& box, KeyStroke key);
    void TextChange(ComboTool& box);
    void SelChange(ComboTool& box);
    void RestoreAddress(ComboTool& box);
    void GoTo(TextView address);
    void SearchFor(TextView words);
    void AddEntry(TextView text, ComboTool* box, Box& state) const;

    TabSet& m_tabs;
    CommandBar& m_actBar;
    Box m_address;
    Box m_search;
};

} // namespace tessa
