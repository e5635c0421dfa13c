#pragma once
#include "base/Signal.h"
#include "tabs/TabGroups.h"

#include <string>
#include <vector>

namespace tessa {

/// The tabs that were closed last, so that a slip of the hand costs nothing. Those that one command has closed come
/// back together. Owned by the main window; what it refers to outlives it.
class ClosedTabs {
public:
    /// More commands are forgotten, the oldest first, and older ones also when there are more tabs than these.
    static constexpr std::size_t kMost = 25;
    static constexpr std::size_t kMostTabs = 1000;
    /// So many of the tabs that come back together load at once; the others when they are looked at.
    static constexpr std::size_t kAwake = 4;

    ClosedTabs(TabSet& tabs, TabStrip& pcPage, ViewArray& Browser, TabGroups& groups)
        : m_tabs(tabs), m_pcPage(pcPage), m_browser(Browser), m_groups(groups) {}

    /// Keeps the tab of view `Index`, which is about to be closed. A blank page is not worth it.
    void Remember(std::int32_t Index);
    /// What is remembered until `EndSeveral` was closed by one command.
    void BeginSeveral();
    void EndSeveral();
    /// The page of view `Index` gives way to a blank one, by the same command.
    void RememberBlanked(std::int32_t Index);

    /// Brings the tabs that were closed last back to their places and groups, with their history. Also brings the tab
    /// to the front that was there before the command, or the leftmost when it has stayed. Does nothing when there are
    /// none.
    void Reopen();
    /// How many tabs `Reopen` brings back.
    [[nodiscard]] std::size_t Next() const { return m_closed.empty() ? 0 : m_closed.back().Tabs.size(); }

    /// The pages of the tabs that were closed last, the last one first.
    struct Page {
        Text Title, Address;
    };
    [[nodiscard]] std::vector<Page> Last(std::size_t most) const;

    /// The tab of a view that has closed is there again, with another view.
    Signal<void(std::int32_t was, std::int32_t is)> Returned;
    /// What there is to bring back may have changed.
    Signal<void()> Changed;

private:
    struct ClosedTab {
        Text Address;
        Text Title;
        std::string History;
        std::size_t Position = 0;
        bool WasInFront = false; ///< when the command began
        bool Pinned = false;
        std::int32_t Index = 0; ///< of its view
        std::optional<GroupMembership> Group{};
        Text Name{}; ///< that its user has given it
    };
    struct Command {
        std::vector<ClosedTab> Tabs;   ///< in the order in which they were closed
        std::int32_t BlankedIndex = 0; ///< the view that was blanked; 0 for none
        std::int32_t FrontIndex = 0;   ///< the view in front when it began; 0 where it closes but one
    };

    void Forget();
    /// Opens that tab again in the background; nothing when there is no room for one more.
    Tab* Open(const ClosedTab& closed, bool awake);
    /// The tab that the command has left blank, with its page again; nothing when it has shown another one since.
    Tab* Unblank(const Command& command);

    TabSet& m_tabs;
    TabStrip& m_pcPage;
    ViewArray& m_browser;
    TabGroups& m_groups;
    bool m_several = false;
    std::vector<Command> m_closed; ///< the one closed last at the end
};

} // namespace tessa
