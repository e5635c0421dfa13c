#pragma once
#include "base/Signal.h"
#include "tabs/KeptGroups.h"
#include "tabs/TabSet.h"

#include <map>
#include <optional>
#include <unordered_set>
#include <vector>

namespace tessa {

/// What a group was opened from: what its file says.
struct GroupSource {
    Text Path;
    std::vector<Text> All;       ///< its addresses in the order in which they open
    std::vector<Text> LeftOut{}; ///< those of them that were not opened
    TabColour Colour = TabColour::None;
    bool IsThere = true; ///< it can be read

    /// The addresses that were opened.
    [[nodiscard]] std::vector<Text> Opened() const;
    bool operator==(const GroupSource&) const = default;
};

/// A tab of a group, as it would be written down.
struct GroupTab {
    std::int32_t Index = 0;
    Text Address;                ///< that of the file, while the tab shows its page
    std::optional<Text> Entry{}; ///< the address in the file that it was opened from
    bool operator==(const GroupTab&) const = default;
};

/// What is known of a tab of a group, for when it closes and comes back.
struct GroupMembership {
    std::int32_t Group = 0;
    GroupSource File;
    Text Name;
    TabColour Colour = TabColour::None;
    bool Folded = false, ColourChosen = false;
    std::optional<Text> Entry{};
    Text Landed{};
};

/// Which TessaGroup each tab was opened from. The tabs that one opening has made are a group of the strip. The strip
/// knows its name, its colour and whether it is folded. Here stands its file, and how tabs and file differ. A tab that
/// somebody opens from a tab of a group is of none, until its user puts it there. Owned by the main window; what it
/// refers to outlives it.
class TabGroups {
public:
    TabGroups(TabSet& tabs, TabStrip& pcPage, ViewArray& Browser);
    TabGroups(const TabGroups&) = delete;
    TabGroups& operator=(const TabGroups&) = delete;

    /// Begins a group with the tab of that view, which stands for no address of the file yet. Answers with the group's
    /// number; 0 without the tab. A file without a colour gets one that few other groups have.
    std::int32_t Begin(std::int32_t index, Text name, GroupSource file);
    /// The tab of that view is of this group from now on. `entry` is the address of the file that it is opened from;
    /// nothing for a tab that is put there. False when one of them is gone.
    bool Add(std::int32_t index, std::int32_t group, std::optional<Text> entry = std::nullopt);
    /// The tab of that view is of no group any more; it stays where it is.
    void TakeOut(std::int32_t index);
    /// The tabs of these views are of that group from now on, as far as they were not; of none for 0, but for all tabs
    /// of a group together, which stay one.
    void Put(const std::vector<std::int32_t>& indexes, std::int32_t group);
    /// Moves the group's tabs behind all others, in their order.
    void MoveToEnd(std::int32_t group);
    /// Its user has chosen a colour for the group.
    void ChooseColour(std::int32_t group, TabColour colour);
    [[nodiscard]] bool ColourChosen(std::int32_t group) const;

    /// The group of that view's tab; nothing for none.
    [[nodiscard]] const TabGroup* Of(std::int32_t index) const;
    /// The path of the file that its group was opened from; empty for none.
    [[nodiscard]] Text PathOf(std::int32_t index) const;
    /// The file of a group; nothing for a group that is gone.
    [[nodiscard]] const GroupSource* FileOf(std::int32_t group) const;
    /// The groups that were opened from that file, by their numbers.
    [[nodiscard]] std::vector<std::int32_t> OpenedFrom(TextView path) const;
    /// The indexes of its views, in the order of the strip.
    [[nodiscard]] std::vector<std::int32_t> TabsOf(std::int32_t group) const;

    /// Whether the tabs show other pages than the file says, in another order, or have another colour. A page counts as
    /// the file's too where the site has led on to it. So it does where only "www.", a fragment or the like is
    /// different.
    [[nodiscard]] bool IsChanged(std::int32_t group) const;
    /// What would be written down, in the order of the strip. A tab that shows nothing stands with the address that it
    /// was opened from, or not at all.
    [[nodiscard]] std::vector<GroupTab> TabsToSave(std::int32_t group) const;
    /// The file says this by now.
    void SetFile(std::int32_t group, GroupSource file);
    /// Whether somebody else has changed the file since the group was opened or saved.
    [[nodiscard]] bool IsOvertaken(std::int32_t group) const;
    /// What the file says was written by its user, or he has seen it.
    void Agree(std::int32_t group);
    /// The file has been written with these tabs, each of which stands for its address from now on.
    void NoteSaved(std::int32_t group, const std::vector<GroupTab>& tabs);

    /// The view is about to go to another page, or has come to one.
    void Begins(std::int32_t index, TextView address);
    /// Its tab has been remembered, and closes.
    void Closes(std::int32_t index) { m_members.erase(index); }
    void Shows(std::int32_t index, TextView address);
    /// The group to which the page belongs that the view is about to show: the page of an address of its file. Empty
    /// for any other.
    [[nodiscard]] Text NameOfVisit(std::int32_t index) const;

    /// What brings a tab that closes back into its group. Nothing for a tab of none.
    [[nodiscard]] std::optional<GroupMembership> Membership(std::int32_t index) const;
    void Return(std::int32_t index, const GroupMembership& membership);

    /// The groups and the pinned tabs as they are written down. `become` gives the number for a view's index; those of
    /// 0 are left out.
    [[nodiscard]] KeptGroups Kept(const std::function<std::int32_t(std::int32_t)>& become) const;
    /// Brings back a group that was written down, with these tabs. Number n is `indexes[n - 1]`, the index of a view,
    /// or 0 when it has not come back.
    void Restore(const KeptGroup& kept, GroupSource file, const std::vector<std::int32_t>& indexes);

private:
    /// What a navigation leads to.
    enum class Coming { Nothing, Own, Another };

    struct Member {
        std::optional<Text> Entry{};
        Text Landed{};         ///< where its address led to
        std::size_t Typed = 0; ///< how often the user had typed into the window's boxes when it came
        bool Fresh = true;     ///< it has not been anywhere yet
        bool Begun = false;
        Coming Next = Coming::Nothing;
    };
    struct Known {
        GroupSource File;
        std::vector<Text> Agreed;        ///< its addresses when the group was opened or saved
        std::unordered_set<Text> Places; ///< its addresses, as they are compared
        bool ColourChosen = false;
        std::uint64_t Judged = 0; ///< the arrangement and the navigations that `Changed` was found for
        std::uint64_t JudgedVisits = 0;
        bool Changed = false;
    };

    void Begin(std::int32_t group, GroupSource file);
    [[nodiscard]] Known* Find(std::int32_t group);
    [[nodiscard]] const Known* Find(std::int32_t group) const;
    [[nodiscard]] TabColour RareColour() const;
    [[nodiscard]] static bool ShowsItsPage(const Member& member, const ArrayView& view);
    [[nodiscard]] std::optional<GroupTab> ToSave(std::int32_t index) const;
    /// The address of the file that the tab shows the page of; nothing when it shows another one.
    [[nodiscard]] std::optional<Text> EntryShown(std::int32_t index) const;
    [[nodiscard]] bool Differs(std::int32_t group, const Known& known) const;

    TabSet& m_tabs;
    TabStrip& m_pcPage;
    ViewArray& m_browser;
    mutable std::map<std::int32_t, Known> m_groups; ///< by number
    std::map<std::int32_t, Member> m_members;       ///< by the index of the view
    std::uint64_t m_visits = 1;                     ///< counts navigations of members
};

} // namespace tessa
