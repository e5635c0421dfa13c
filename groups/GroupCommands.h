#pragma once
#include "groups/GroupCheck.h"
#include "groups/GroupPlan.h"
#include "groups/LoadProgress.h"
#include "groups/TessaGroups.h"
#include "groups/frmTessaGroup.h"
#include "tabs/TabSet.h"

#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace tessa {

/// What the main window does with TessaGroups. A group is named by the full path of its file. What goes wrong with a
/// file is said in the status bar. Owned by the main window.
class GroupCommands {
public:
    /// What the commands work on; all of it outlives them.
    struct Parts {
        TabSet& tabs;
        TabStrip& pcPage;
        ViewArray& Browser;
        StatusBar& sbStatus;
        MessageBoxes& messages;
        FileDialogs& files;
        FormHost& forms;
        const Text& groupFolder; ///< with the separator at the end
    };
    explicit GroupCommands(Parts parts);
    GroupCommands(const GroupCommands&) = delete;
    GroupCommands& operator=(const GroupCommands&) = delete;

    /// Opens every address of a group, one tab an address, the last one in front. With `TGCloseOthersFirst` only the
    /// leftmost tab stays, and shows the first address. A file that cannot be read is a group without addresses. Asks
    /// before it opens many that are not the user's own, or what is no page of the web. Some of that it never opens.
    void OpenTessaGroup(TextView TessaGroup) { OpenTessaGroups({Text(TessaGroup)}); }
    /// Opens several groups as if they were one. Answers with the indexes of the views that show their pages.
    std::vector<std::int32_t> OpenTessaGroups(const std::vector<Text>& groups);
    /// Opens addresses that belong together, one tab an address, beside the tabs that are open.
    void OpenInTabs(const std::vector<Text>& addresses);
    /// Writes an address into a group, which is made when missing.
    void AddToTessaGroup(TextView URL, TextView SGFile);
    /// Saves all open tabs as that group; asks before it replaces one.
    void SaveAsTessaGroup(TextView path);
    /// The same for whoever is not there to be asked: replaces, and leaves private tabs out.
    [[nodiscard]] TessaGroups::Saved SaveUnasked(TextView path);
    /// Saves addresses as that group; asks before it replaces one.
    void SaveAddresses(TextView path, const std::vector<Text>& addresses);
    /// Shows what has become of the addresses of these groups.
    void Check(const std::vector<Text>& groups);
    /// Of all groups of the user's folder.
    void CheckAll();
    /// What can be made of the pages of all tabs.
    enum class Writes { Pdf, Offline };
    /// Makes it, and says so; what could not be had is counted.
    void WriteTabs(Writes what, TextView path);
    /// Edits that group.
    void OrganizeTessaGroup(TextView sFileName);
    /// Asks which group to edit, and edits it. A file whose name does not end in ".tvg" is not edited.
    void OrganizeTessaGroups();

    /// Whether a path names a group: by ".tvg" at its end, in small letters.
    [[nodiscard]] static bool IsGroupFile(TextView path) { return path.ends_with(TessaGroups::kExtension); }

    /// The view's page has loaded, or its tab is being closed.
    void PageDone(std::int32_t index);
    /// Stops every page that loads or waits to load. The tabs stay, and a refresh shows what they were to load.
    void StopAll();

    /// The group that the view was opened from, by the path of its file; empty for none.
    [[nodiscard]] Text GroupOf(std::int32_t index) const;
    /// The file of the group that the user knows by that name; empty when there is none.
    [[nodiscard]] Text FileOf(TextView name) const;
    /// A group's pages are about to be opened, if their user goes on.
    Signal<void(TextView name, const std::vector<Text>& addresses)> Opening;

    /// Whether the other tabs are closed when a group is opened.
    bool TGCloseOthersFirst = false;
    /// Asks for addresses, while there is a way into the network.
    AddressProbe* Probe = nullptr;
    /// Does what `WriteTabs` is to do. Tells later why nothing was written, a sentence or nothing, and how many pages
    /// are missing.
    std::function<void(Writes what, const Text& path, std::function<void(const Text& refusal, std::size_t left)> told)>
        Write;
    /// Whether there is somebody to ask. Without anybody, what needs an answer is not opened.
    bool MayAsk = true;

private:
    /// An address to open, and the group that it stands in.
    struct Page {
        Text address;
        Text group{};      ///< empty for none
        PagePlan plan{};   ///< how it opens
        bool kept = false; ///< a file that was kept beside the group, which cannot do anything
    };
    /// How all of them open.
    struct Manner {
        bool closeOthers = false;
        bool behind = false;
    };

    /// Whether the group lies in the user's own folder of groups.
    [[nodiscard]] bool IsOwnGroup(TextView group) const;
    [[nodiscard]] bool MayOpenMany(std::size_t count) const;
    /// Takes out what is not to be opened, and tells how much that was. Nothing when nothing is left.
    [[nodiscard]] std::optional<std::size_t> LeaveUntrusted(std::vector<Page>& pages) const;
    [[nodiscard]] std::vector<Page> PagesOf(const Text& group, Manner& manner) const;
    void Open(const std::vector<Page>& pages, Manner manner);
    void OpenEach(std::span<const Page> pages, bool behind);
    void MoveBehind(const Tab* tab, const Tab* other);
    void OpenBehind(const Page& page, const Tab* behind);
    void Show(BrowserView* view, const Page& page);
    void Note(std::int32_t index, const Page& page);
    void ApplyTextSize(std::int32_t index);
    void SaySaved(TessaGroups::Saved saved, TextView path);
    [[nodiscard]] Text TitleOf(TextView address) const;

    Parts m_parts;
    LoadProgress m_progress;
    std::vector<std::int32_t> m_opened;                ///< by the last command
    std::unordered_map<std::int32_t, Text> m_groups;   ///< by the views opened from them
    std::unordered_map<std::int32_t, int> m_textSizes; ///< of pages that have not come yet
};

} // namespace tessa
