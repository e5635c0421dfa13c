#pragma once
#include "forms/Controls.h"
#include "settings/SettingsStore.h"
#include "tabpanel/TabFilter.h"
#include "tabs/TabChoice.h"
#include "tabs/TabGroups.h"
#include "tabs/TabSet.h"

#include <vector>

namespace tessa {

/// An entry of the list of tabs: a tab, or a group above its tabs.
struct TabPanelEntry {
    std::int32_t Index = 0; ///< of the tab's view; of a group its number below zero
    std::int32_t Group = 0; ///< the number of the group that it is of, or is; 0 for none
    [[nodiscard]] bool IsGroup() const { return Index < 0; }
    bool operator==(const TabPanelEntry&) const = default;
};

/// Where in the list tabs would come that are dragged.
struct TabPanelPlace {
    std::size_t Entry = 0;  ///< before that one, counted from 0; behind the last one at the end
    std::int32_t Group = 0; ///< the group that they would be of; 0 for none
    bool OnGroup = false;   ///< onto its name: before its first tab
    bool operator==(const TabPanelPlace&) const = default;
};

/// The list of tabs at the side of the window, as data. Tabs are named by the indexes of their views; what is done to
/// one that has closed does nothing. Owned by the main window.
class frmTabPanel {
public:
    /// What it shows; all of it outlives the form.
    struct Parts {
        TabStrip& pcPage;
        ViewArray& Browser;
        TabSet& tabs;
        TabChoice& choice;
        TabGroups& groups;
    };
    explicit frmTabPanel(Parts parts);
    frmTabPanel(const frmTabPanel&) = delete;
    frmTabPanel& operator=(const frmTabPanel&) = delete;

    FormState Form;
    Text Caption = u"Tabs";
    TextBox txtFilter;  ///< shows those tabs alone whose name, title or address has all words of it
    Label lblNone{u""}; ///< says why the list is empty
    /// It is at the right side of the window, else at the left.
    Property<bool> OnRight{false};
    /// The user wants no strip of tabs while the panel is open.
    Property<bool> StripHidden{false};
    /// As wide as the user has made it, in pixels; 0 for as the view likes.
    std::int32_t Width = 0;

    [[nodiscard]] bool HidesStrip() const { return Form.Visible() && StripHidden(); }
    void Restore(const SettingsStore& store);
    void Save(SettingsStore& store) const;

    /// What the list shows, as it was looked at last.
    [[nodiscard]] const std::vector<TabPanelEntry>& Entries() const { return m_entries; }
    /// Looks at the tabs again. Costs what their number costs, so its view calls it once for many changes.
    void Show();

    [[nodiscard]] Tab* FindTab(std::int32_t index) const;
    /// The group of an entry that is one; nothing for any other.
    [[nodiscard]] TabGroup* FindGroup(std::int32_t index) const;
    /// The entry's name, how many tabs it has, how many of them load, and whether its file says otherwise.
    [[nodiscard]] Text WordsOf(const TabGroup& group) const;
    [[nodiscard]] bool IsChanged(const TabGroup& group) const { return m_parts.groups.IsChanged(group.Id()); }
    /// Whether its tabs are hidden here: none are while somebody looks for something.
    [[nodiscard]] bool IsFolded(const TabGroup& group) const { return group.Folded() && !m_filter.Any(); }
    /// What is written in the line: the name that its user has given it, else the page's title as a whole.
    [[nodiscard]] Text TitleOf(const Tab& tab) const;
    [[nodiscard]] Text TipOf(const Tab& tab) const { return m_parts.tabs.Describe(tab); }
    /// The page has been given up until somebody looks at it.
    [[nodiscard]] bool IsAsleep(const Tab& tab) const;
    [[nodiscard]] const Tab* Front() const { return m_parts.pcPage.SelectedItem(); }
    [[nodiscard]] TabStrip& Strip() const { return m_parts.pcPage; }

    // What the user does to a line.
    /// Brings the tab to the front; nothing is chosen any more. Folds a group, or unfolds it.
    void Click(std::int32_t index);
    /// Takes the tab into the choice or out of it; of a group, chooses its tabs.
    void CtrlClick(std::int32_t index);
    /// Chooses the lines from where the choice began up to that one.
    void ShiftClick(std::int32_t index);
    /// Chooses all tabs that are listed.
    void ChooseAll();
    /// Closes the tab, or all chosen ones when it is one of them.
    void Close(std::int32_t index);
    /// Closes the tab alone.
    void CloseOne(std::int32_t index);
    void ToggleSound(std::int32_t index);
    /// Gives the tab what was typed for a name; nothing takes the name away.
    void Rename(std::int32_t index, TextView typed);
    /// What is dragged along when somebody drags that tab.
    [[nodiscard]] std::vector<std::int32_t> Dragged(std::int32_t index) const;
    /// The place that is meant over an entry, `part` of which is above the pointer, from 0 to 1. `dragged` is the line
    /// that is dragged: a group goes into no other group.
    [[nodiscard]] TabPanelPlace PlaceOver(std::size_t entry, double part, std::int32_t dragged) const;
    /// Puts tabs there, in their order. Those that come into no group leave theirs, but for all of one together.
    void Move(const std::vector<std::int32_t>& indexes, const TabPanelPlace& place);
    /// The addresses of these tabs, of those that have one.
    [[nodiscard]] std::vector<Text> AddressesOf(const std::vector<std::int32_t>& indexes) const;

    /// Tabs are to be closed as one command.
    Signal<void(const std::vector<std::int32_t>& indexes)> Closes;
    /// The list has to be looked at now, because its user has typed.
    Signal<void()> Filtered;
    /// What lines show has changed although the strip has not: which tabs sleep.
    Signal<void()> Dozed;
    /// The panel was shown or hidden, changed its side, or hides the strip.
    Signal<void()> Changed;

private:
    void AddGroup(const TabGroup& group);
    [[nodiscard]] const Tab* FirstOf(const TabPanelEntry& entry) const;
    [[nodiscard]] const Tab* LastOf(const TabPanelEntry& entry) const;
    [[nodiscard]] std::int32_t GroupAt(std::size_t place) const;
    [[nodiscard]] TabPanelPlace PlaceOverGroup(std::size_t entry, double part) const;
    [[nodiscard]] TabPanelPlace OutsideOf(const TabPanelPlace& place) const;
    struct Neighbours {
        const Tab *Before = nullptr, *Behind = nullptr; ///< of the tabs that are put there; one of them at most
    };
    [[nodiscard]] Neighbours NeighboursAt(const TabPanelPlace& place, const std::vector<std::int32_t>& indexes) const;
    void ShowNone();
    [[nodiscard]] Text PageTitleOf(const Tab& tab) const;
    [[nodiscard]] bool IsListed(const Tab& tab) const;
    [[nodiscard]] std::size_t PlaceOf(std::int32_t index) const;

    Parts m_parts;
    TabFilter m_filter;
    std::vector<TabPanelEntry> m_entries;
};

} // namespace tessa
