#pragma once
#include "groups/LoadProgress.h"
#include "groups/TessaGroups.h"
#include "groups/frmTessaGroup.h"
#include "tabs/TabSet.h"

#include <optional>
#include <span>
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
    /// Opens several groups as if they were one.
    void OpenTessaGroups(const std::vector<Text>& groups);
    /// Opens addresses that belong together, one tab an address, beside the tabs that are open.
    void OpenInTabs(const std::vector<Text>& addresses);
    /// Writes an address into a group, which is made when missing.
    void AddToTessaGroup(TextView URL, TextView SGFile);
    /// Saves all open tabs as that group; asks before it replaces one.
    void SaveAsTessaGroup(TextView path);
    /// Edits that group.
    void OrganizeTessaGroup(TextView sFileName);
    /// Asks which group to edit, and edits it. A file whose name does not end in ".tvg" is not edited.
    void OrganizeTessaGroups();

    /// Whether a path names a group: by ".tvg" at its end, in small letters.
    [[nodiscard]] static bool IsGroupFile(TextView path) { return path.ends_with(TessaGroups::kExtension); }

    /// The view's page has loaded, or its tab is being closed.
    void PageDone(std::int32_t index) { m_progress.Done(index); }
    /// Stops every page that loads or waits to load. The tabs stay, and a refresh shows what they were to load.
    void StopAll();

    /// A group's pages are about to be opened, if their user goes on.
    Signal<void(TextView name, const std::vector<Text>& addresses)> Opening;

    /// Whether the other tabs are closed when a group is opened.
    bool TGCloseOthersFirst = false;
    /// Whether there is somebody to ask. Without anybody, what needs an answer is not opened.
    bool MayAsk = true;

private:
    /// Whether the group lies in the user's own folder of groups.
    [[nodiscard]] bool IsOwnGroup(TextView group) const;
    [[nodiscard]] bool MayOpenMany(std::size_t count) const;
    /// Takes out what is not to be opened, and tells how much that was. Nothing when nothing is left.
    [[nodiscard]] std::optional<std::size_t> LeaveUntrusted(std::vector<Text>& addresses) const;
    void Open(const std::vector<Text>& addresses);
    void OpenEach(std::span<const Text> addresses);
    void Show(BrowserView* view, TextView address);
    [[nodiscard]] Text TitleOf(TextView address) const;

    Parts m_parts;
    LoadProgress m_progress;
};

} // namespace tessa
