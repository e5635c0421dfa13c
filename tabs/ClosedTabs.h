#pragma once
#include "base/Signal.h"
#include "tabs/TabGroups.h"

#include <set>
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
    /// The page of view `Index` is asked by that command. Whenever its tab closes, it has closed it.
    void Await(std::int32_t Index);
    /// The page of view `Index` was asked, and stays.
    void Stays(std::int32_t Index);
    /// The page of view `Index` gives way to a blank one, by the same command.
    void RememberBlanked(std::int32_t Index);

    /// Brings the tabs that were closed last back to their places and groups, with their history. Also brings the tab
    /// to the front that was there before the command, or the leftmost when it has stayed. A tab whose page has not
    /// answered the command yet stays. Does nothing when there are none.
    void Reopen();
    /// The same for what that command has closed, whatever was closed since.
    void Reopen(std::uint64_t command);
    /// The number of the last command that has closed several tabs; 0 before the first.
    [[nodiscard]] std::uint64_t LastSeveral() const { return m_several.Last; }
    /// Whether that command can still be taken back.
    [[nodiscard]] bool Has(std::uint64_t command) const;
    /// How many tabs `Reopen` brings back.
    [[nodiscard]] std::size_t Next() const;

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
        std::uint64_t Number = 0;         ///< 0 where it closes but one
        std::vector<ClosedTab> Tabs;      ///< in the order in which they were closed
        std::int32_t BlankedIndex = 0;    ///< the view that was blanked; 0 for none
        std::int32_t FrontIndex = 0;      ///< the view in front when it began; 0 where it closes but one
        std::set<std::int32_t> Awaited{}; ///< the views whose pages have not answered it yet
    };
    using Commands = std::vector<Command>;
    struct Opened {
        std::set<std::int32_t> Indexes{};
        std::int32_t Front = 0; ///< that of the tab that was in front; 0 when it is not among them
    };
    struct Several {
        bool Now = false; ///< a command closes several tabs just now
        std::uint64_t Last = 0;
    };

    /// The command that awaits that view, which it does no more; the end for none.
    Commands::iterator TakeAwaiting(std::int32_t Index);
    void Add(Commands::iterator command, ClosedTab tab);
    void DropEmpty();
    void Forget();
    /// Takes a command out of the list, with places as if it had been the last one.
    Command TakeOut(Commands::iterator command);
    void TakeBack(const Command& command);
    /// Opens its tabs again.
    Opened OpenAll(const Command& command);
    [[nodiscard]] Tab* Leftmost(const std::set<std::int32_t>& indexes) const;
    /// The last command that has closed a tab; the end for none.
    [[nodiscard]] Commands::const_iterator Latest() const;
    /// Opens that tab again in the background, and answers with its view; 0 when there is no room for one more.
    std::int32_t Open(const ClosedTab& closed, bool awake);
    /// Brings the page of the tab back that the command has left blank. False when that has shown another one since.
    bool Unblank(const Command& command);

    TabSet& m_tabs;
    TabStrip& m_pcPage;
    ViewArray& m_browser;
    TabGroups& m_groups;
    Several m_several;
    Commands m_closed; ///< the one closed last at the end
};

} // namespace tessa
