#pragma once
#include "base/Signal.h"
#include "base/Text.h"
#include "base/Units.h"
#include "forms/TabGroup.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

namespace tessa {

/// Pictures of the strip's image list `ilTabs`; "Red" is the busy mark.
enum class TabImage { None = 0, Red };

/// What is to be heard of a tab's page.
enum class TabSound { None, Playing, Muted };

/// What a tab's page has for its user since he read it last.
enum class TabNews {
    Unknown,
    Nothing, ///< it says what it said then
    New
};

enum class TabPlacement { Top = 0, Bottom = 1 };

/// One entry of the strip. `Key` names it and never changes; `Tag` is the caller's number.
class Tab {
public:
    [[nodiscard]] const Text& Key() const { return m_key; }
    [[nodiscard]] const Text& Caption() const { return m_caption; }
    /// What its caption was cut from; the caption where nothing was cut.
    [[nodiscard]] const Text& Title() const { return m_title.empty() ? m_caption : m_title; }
    /// What its user calls it; empty when he has not named it.
    [[nodiscard]] const Text& Name() const { return m_name; }
    /// What is shown of it: its name, else its caption.
    [[nodiscard]] const Text& Shown() const { return m_name.empty() ? m_caption : m_name; }
    [[nodiscard]] TabImage Image() const { return m_image; }
    /// The page waits for an answer of its user.
    [[nodiscard]] bool Asks() const { return m_asks; }
    [[nodiscard]] TabSound Sound() const { return m_sound; }
    /// The address whose page the tab waits for while it still shows another; empty for none.
    [[nodiscard]] const Text& Awaited() const { return m_awaited; }
    /// What the page does is forgotten with the tab.
    [[nodiscard]] bool Private() const { return m_private; }
    /// That of its group.
    [[nodiscard]] TabColour Colour() const { return m_group ? m_group->Colour() : TabColour::None; }
    /// The group that it belongs to; nothing for none.
    [[nodiscard]] TabGroup* Group() const { return m_group; }
    /// It stands with its like before all other tabs.
    [[nodiscard]] bool Pinned() const { return m_pinned; }
    [[nodiscard]] TabNews News() const { return m_news; }
    /// What is new, in a few words; empty without any.
    [[nodiscard]] const Text& NewsWords() const { return m_newsWords; }
    /// Its user has chosen it, maybe with others, for what he does next. Says nothing of what is in front.
    [[nodiscard]] bool Chosen() const { return m_chosen; }
    std::int32_t Tag = 0;

private:
    friend class TabStrip;
    Text m_key, m_caption, m_title, m_name, m_awaited, m_newsWords;
    TabNews m_news = TabNews::Unknown;
    TabImage m_image = TabImage::None;
    bool m_asks = false;
    TabSound m_sound = TabSound::None;
    bool m_private = false;
    bool m_chosen = false;
    bool m_pinned = false;
    bool m_queued = false;
    TabGroup* m_group = nullptr;
};

/// What a strip's view has to repaint.
enum class TabStripChange {
    Layout, ///< tabs, their order, the selection or the placement: at the next turn of the event loop
    Faces,  ///< captions and pictures only: gathered, a tenth of a second at most
};

/// The tab strip as data: a row of tabs, of which at most one is selected. Positions are 1-based. A selected tab that
/// is removed hands the selection to its right neighbour, or to the left one without one. No click is raised.
/// A tab's address stays valid until it is removed. Pinned tabs stand before all others, whatever position is asked
/// for.
class TabStrip {
public:
    /// Adds a tab at `position` (1 to Count() + 1, anything else means the end). A key in use adds nothing and
    /// returns nothing. The first tab ever added is the selected one.
    Tab* Add(std::size_t position, Text key);
    void Remove(const Tab* tab);
    /// Moves a tab to a position; the selection stays with its tab.
    void Move(const Tab* tab, std::size_t position);

    [[nodiscard]] std::size_t Count() const { return m_tabs.size(); }
    [[nodiscard]] Tab* FindAt(std::size_t position) const;
    [[nodiscard]] Tab* Find(TextView key) const;
    /// 1-based; 0 for a tab that is not in the strip.
    [[nodiscard]] std::size_t PositionOf(const Tab* tab) const;

    [[nodiscard]] Tab* SelectedItem() const { return m_selected; }
    /// Selects the tab and runs `Click` when that changes the selection.
    void Select(Tab* tab);
    /// What a user's click does: selects the tab and runs `Click` in any case.
    void UserClick(Tab* tab);

    /// `title` is what the caption was cut from; empty where it is whole.
    void SetCaption(Tab* tab, Text caption, Text title = {});
    /// An empty name takes it away.
    void SetName(Tab* tab, Text name);
    void SetImage(Tab* tab, TabImage image);
    void SetAsks(Tab* tab, bool asks);
    void SetAwaited(Tab* tab, Text address);
    void SetSound(Tab* tab, TabSound sound);
    void SetPrivate(Tab* tab, bool isPrivate);
    /// The tab waits until it is its turn to load.
    void SetQueued(Tab* tab, bool queued);
    void SetNews(Tab* tab, TabNews news, Text words = {});
    void SetChosen(Tab* tab, bool chosen);
    /// How many tabs are chosen.
    [[nodiscard]] std::size_t CountChosen() const { return m_countChosen; }

    /// Pins the tab behind the other pinned ones, which takes it out of its group; or puts it before all that are not.
    void SetPinned(Tab* tab, bool pinned);
    [[nodiscard]] std::size_t PinnedCount() const { return m_pinned; }

    // Groups. Their tabs need not stand beside each other.
    /// Makes a group of that tab, which leaves the one that it is in. `id` is that of a group that has gone; 0 for a
    /// new one.
    TabGroup* NewGroup(Tab* first, Text name, TabColour colour, std::int32_t id = 0);
    /// The tab is of that group from now on; of none without one. A pinned tab is no longer.
    void SetGroup(Tab* tab, TabGroup* group);
    [[nodiscard]] TabGroup* FindGroup(std::int32_t id) const;
    /// In the order of their first tabs.
    [[nodiscard]] std::vector<TabGroup*> Groups() const;
    /// In the order of the strip.
    [[nodiscard]] std::vector<Tab*> TabsOf(const TabGroup* group) const;
    void SetFolded(TabGroup* group, bool folded);
    void SetGroupColour(TabGroup* group, TabColour colour);
    void SetGroupName(TabGroup* group, Text name);
    /// What is said of a group elsewhere has changed.
    void TouchGroups() { Mark(TabStripChange::Faces); }
    /// Whether the tab is to be seen: in a folded group only the selected one is.
    [[nodiscard]] bool IsShown(const Tab& tab) const {
        return !tab.Group() || !tab.Group()->Folded() || &tab == m_selected;
    }
    /// Changes with the tabs of the strip, their order and their groups.
    [[nodiscard]] std::uint64_t Arrangement() const { return m_arrangement; }

    [[nodiscard]] TabPlacement Placement() const { return m_placement; }
    void SetPlacement(TabPlacement placement);

    /// How high the row of tabs is; grows with the font, reported by the view.
    Pixels RowHeight{22};
    /// The owner's handler of a selection.
    Signal<void()> Click;
    /// Something about the tabs has changed; runs at every change.
    Signal<void()> Touched;
    /// The last tab of a group has left it.
    Signal<void(std::int32_t id)> GroupGone;
    /// Attaches the view: called once a change until `Clean()`; runs at once to show the present state.
    [[nodiscard]] Connection Attach(Signal<void(TabStripChange)>::Listener mirror);
    /// The view has repainted; the next change is reported again.
    void Clean();

private:
    void Mark(TabStripChange change);
    void MarkArranged();
    [[nodiscard]] std::size_t Allowed(const Tab& tab, std::size_t position) const;
    void MoveTo(std::size_t from, std::size_t position);
    void CountIn(const Tab& tab, bool comes);
    void SetLoads(Tab& tab, const std::function<void()>& change);
    void Leave(Tab& tab);

    std::vector<std::unique_ptr<Tab>> m_tabs;
    std::unordered_map<Text, Tab*> m_byKey;
    std::map<std::int32_t, std::unique_ptr<TabGroup>> m_groups;
    std::int32_t m_lastGroup = 0;
    std::size_t m_pinned = 0;
    std::uint64_t m_arrangement = 0;
    Tab* m_selected = nullptr;
    std::size_t m_countChosen = 0;
    TabPlacement m_placement = TabPlacement::Top;
    Signal<void(TabStripChange)> m_mirror;
    bool m_layoutMarked = false;
    bool m_facesMarked = false;
};

} // namespace tessa
