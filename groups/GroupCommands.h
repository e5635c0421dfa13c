#pragma once
#include "groups/GroupCheck.h"
#include "groups/GroupOpening.h"
#include "groups/frmTessaGroup.h"

#include <functional>
#include <vector>

namespace tessa {

/// What the main window does with TessaGroups, opening them among it. A group is named by the full path of its file.
/// What goes wrong with a file is said in the status bar. Owned by the main window.
class GroupCommands final : public GroupOpening {
public:
    using GroupOpening::GroupOpening;

    /// Writes an address into a group, which is made when missing.
    void AddToTessaGroup(TextView URL, TextView SGFile);
    /// Writes what the tabs of these views show into a group, in their order; stops at the first that cannot be
    /// written. Those that are of no group and not pinned join the group's tabs, where it is open.
    void AddTabsToTessaGroup(const std::vector<std::int32_t>& indexes, TextView SGFile);
    /// Saves all open tabs as that group; asks before it replaces one.
    void SaveAsTessaGroup(TextView path);
    /// The same for the tabs of these views, which are that group's tabs from then on.
    void SaveTabs(TextView path, const std::vector<std::int32_t>& indexes);
    /// All of them, for whoever is not there to be asked: replaces, and leaves private tabs out.
    [[nodiscard]] TessaGroups::Saved SaveUnasked(TextView path);
    /// Saves addresses as that group; asks before it replaces one.
    void SaveAddresses(TextView path, const std::vector<Text>& addresses);
    /// Writes what the tabs of a group show into its file, in one go, which can be taken back. Asks where somebody else
    /// has changed the file meanwhile, and about private tabs.
    void SaveBack(std::int32_t group);
    /// Whether that would change the file.
    [[nodiscard]] bool IsToSave(std::int32_t group) const;
    /// The file of that path may have changed: the tab groups opened from it are held against what it says now.
    void Reread(TextView path);
    void RereadAll();
    /// Shows what has become of the addresses of these groups.
    void Check(const std::vector<Text>& groups);
    /// Of all groups of the user's folder.
    void CheckAll();
    /// What can be made of the pages of all tabs, or of a group that is not open.
    enum class Writes { Pdf, Offline, Print };
    /// Makes it, and says how far it is and how it went; what could not be had is counted. What is printed needs no
    /// path.
    void WriteTabs(Writes what, TextView path = {}) { WritePages(what, path, {}); }
    /// The same of a group, whose pages no tab shows.
    void WriteGroup(Writes what, TextView group, TextView path = {}) { WritePages(what, path, group); }
    /// Edits that group.
    void OrganizeTessaGroup(TextView sFileName);
    /// Asks which group to edit, and edits it. A file whose name does not end in ".tvg" is not edited.
    void OrganizeTessaGroups();
    /// The file of the group that the user knows by that name; empty when there is none.
    [[nodiscard]] Text FileOf(TextView name) const;

    /// What is to be made of which pages.
    struct Writing {
        Writes what;
        Text path;
        Text group; ///< the path of its file; empty for all tabs
        /// So many of the pages are there.
        std::function<void(std::size_t done, std::size_t all)> fetched;
        /// All pages are there, and so much of the whole is made of them.
        std::function<void(int percent)> made;
        /// It is over: why nothing was written, a sentence or nothing, and which pages are missing.
        std::function<void(const Text& refusal, const std::vector<Text>& left)> ended;
        /// Its user wants no more of it.
        Signal<void()>* stop;
    };
    /// Does what `WriteTabs` and `WriteGroup` are to do, later. Tells nothing at all when its user thinks better of it.
    Signal<void(const Writing&)> Write;

    /// A group was written that may have been none before.
    Signal<void()> Written;

private:
    [[nodiscard]] bool MayOverwrite(std::int32_t group, const Text& name) const;
    [[nodiscard]] std::int32_t OpenFrom(TextView path) const;
    void Join(std::int32_t index, std::int32_t group, const Text& entry);
    /// The tabs that `find` finds, without those that its user wants left out; nothing when he wants none saved.
    [[nodiscard]] std::optional<std::vector<GroupTab>>
    AskOfPrivate(const std::function<std::vector<GroupTab>()>& find) const;
    void WriteBack(std::int32_t group, std::vector<GroupTab> tabs);
    [[nodiscard]] std::vector<Text> PanesOf(const std::vector<GroupTab>& tabs, const std::vector<Text>& all) const;
    void WritePages(Writes what, TextView path, TextView group);
    void SaySaved(TessaGroups::Saved saved, TextView path);
    [[nodiscard]] Text TitleOf(TextView address) const;
    void OpenArchive(const Text& address);

    /// Answers for a user who is not there.
    class Unasked;
};

} // namespace tessa
