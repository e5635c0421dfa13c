#pragma once
#include "base/Signal.h"
#include "forms/FormHost.h"
#include "groups/GroupPlan.h"
#include "groups/LoadProgress.h"
#include "groups/TessaGroups.h"
#include "platform/SettingsStorage.h"
#include "tabs/TabGroups.h"
#include "tabs/TabSet.h"
#include "tiles/Tiles.h"

#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace tessa {

class AddressProbe;

/// Opens TessaGroups in tabs, as their files say. A group is named by the full path of its file.
class GroupOpening {
public:
    /// What it works on; all of it outlives it.
    struct Parts {
        TabSet& tabs;
        TabStrip& pcPage;
        ViewArray& Browser;
        TabGroups& tabGroups;
        Tiles& tiles;
        StatusBar& sbStatus;
        MessageBoxes& messages;
        FileDialogs& files;
        FormHost& forms;
        SettingsStorageFactory& settings;
        AddressProbe& probe;     ///< asks for addresses that are checked
        const Text& groupFolder; ///< with the separator at the end
    };
    explicit GroupOpening(Parts parts);
    GroupOpening(const GroupOpening&) = delete;
    GroupOpening& operator=(const GroupOpening&) = delete;

    /// Opens every address of a group, one tab an address, the last one in front. With `TGCloseOthersFirst` only the
    /// leftmost tab stays, and shows the first address. A file that cannot be read is a group without addresses. Asks
    /// before it opens many that are not the user's own, or what is no page of the web. Some of that it never opens.
    void OpenTessaGroup(TextView TessaGroup) { OpenTessaGroups({Text(TessaGroup)}); }
    /// Opens several groups as if they were one. Answers with the indexes of the views that show their pages.
    std::vector<std::int32_t> OpenTessaGroups(const std::vector<Text>& groups);
    /// Opens addresses that belong together, one tab an address, beside the tabs that are open.
    void OpenInTabs(const std::vector<Text>& addresses);

    /// An address of a group, and what it leads to where that would open without a question; else nothing.
    struct Unasked {
        Text address, opened;
    };
    /// Those of the group, in the order in which they would open; empty lines are left out.
    [[nodiscard]] static std::vector<Unasked> AllUnasked(const Text& group);

    /// Whether a path names a group: by ".tvg" at its end, in small letters.
    [[nodiscard]] static bool IsGroupFile(TextView path) { return path.ends_with(TessaGroups::kExtension); }

    /// The view's page has loaded, or its tab is being closed.
    void PageDone(std::int32_t index);
    /// Stops every page that loads or waits to load, and what else `Stops`. The tabs stay, and a refresh shows what
    /// they were to load.
    void StopAll();
    /// Whatever goes on beside the pages is to stop, too.
    Signal<void()> Stops;

    /// The group that the view was opened from, by the path of its file; empty for none.
    [[nodiscard]] Text GroupOf(std::int32_t index) const { return m_parts.tabGroups.PathOf(index); }
    /// Which tabs belong to which groups.
    [[nodiscard]] const TabGroups& Groups() const { return m_parts.tabGroups; }
    /// Brings back groups and pinned tabs that were written down, see `TabGroups::Restore`.
    void Restore(const KeptGroups& kept, const std::vector<std::int32_t>& indexes);

    /// Whether the other tabs are closed when a group is opened.
    bool TGCloseOthersFirst = false;
    /// Whether there is somebody to ask. Without anybody, what needs an answer is not opened.
    bool MayAsk = true;

protected:
    /// The group as the user knows it: the name of its file, without ".tvg".
    [[nodiscard]] static Text NameOf(TextView path);
    /// What the file of that path says.
    [[nodiscard]] static GroupSource FileAt(TextView path);

    Parts m_parts;
    LoadProgress m_progress;

private:
    /// An address to open, and the group that it stands in.
    struct Page {
        Text address;
        std::size_t group = 0;  ///< which of the groups that are opened, from 1; 0 for none
        std::size_t number = 0; ///< which page of it, from 1
        Text entry{};           ///< as the group's file has the address
        PagePlan plan{};        ///< how it opens
        bool kept = false;      ///< a file that was kept beside the group, which cannot do anything
    };
    /// How all of them open.
    struct Manner {
        bool closeOthers = false;
        bool behind = false;
    };
    /// What the files of several groups say together.
    struct Opened {
        std::vector<Page> pages{};
        Manner manner{};
        std::size_t foreign = 0; ///< pages of groups that are not the user's own
        Text unread{};           ///< a group that cannot be read
    };

    void Read(const Text& group, Opened& all);
    /// Whether the group lies in the user's own folder of groups.
    [[nodiscard]] bool IsOwnGroup(TextView group) const;
    [[nodiscard]] bool MayOpenMany(std::size_t count) const;
    /// Takes out what is not to be opened, and tells how much that was. Nothing when nothing is left.
    [[nodiscard]] std::optional<std::size_t> LeaveUntrusted(std::vector<Page>& pages) const;
    void NoteLeftOut(const std::vector<Page>& all, const std::vector<Page>& pages);
    void Open(const std::vector<Page>& pages, Manner manner);
    void OpenEach(std::span<const Page> pages, bool behind);
    void MoveBehind(const Tab* tab, const Tab* other);
    void OpenBehind(const Page& page, const Tab* behind);
    void Show(BrowserView* view, const Page& page);
    void Await(std::int32_t index);
    void LeavePins(std::int32_t left);
    void ShowPanes();
    void Note(std::int32_t index, const Page& page);
    void Group(std::int32_t index, const Page& page);
    [[nodiscard]] static GroupSource FileAt(TextView path, const GroupPlan& plan);
    void ApplyTextSize(std::int32_t index);

    std::vector<std::int32_t> m_opened; ///< by the last command
    /// A group that the last command opens.
    struct Opening {
        GroupSource source;
        std::vector<Text> panes;
        std::int32_t begun = 0;              ///< the group of tabs made for it; 0 before
        std::vector<std::int32_t> indexes{}; ///< the view of each page; 0 for none
    };
    std::vector<Opening> m_openings;
    std::unordered_map<std::int32_t, int> m_textSizes; ///< of pages that have not come yet
};

} // namespace tessa
