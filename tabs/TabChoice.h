#pragma once
#include "base/Signal.h"
#include "forms/TabStrip.h"

#include <cstdint>
#include <vector>

namespace tessa {

/// The tabs that the user has chosen together, for commands that work on several. Which tab is in front is another
/// matter: choosing brings none there. The choice goes with its tabs when they move, and loses those that close. The
/// tab in front alone is no choice. Owned by the main window; the strip outlives it.
class TabChoice {
public:
    explicit TabChoice(TabStrip& pcPage);
    TabChoice(const TabChoice&) = delete;
    TabChoice& operator=(const TabChoice&) = delete;

    /// Takes a tab in, or out again. A choice that begins holds the tab in front as well.
    void Toggle(Tab& tab);
    /// Chooses the tabs from where the choice began up to that one. The others are chosen no longer.
    void ExtendTo(Tab& tab);
    /// The same, and the others stay chosen.
    void AddTo(Tab& tab);
    /// Chooses the tabs of these views alone. Those that are not open are left out.
    void Replace(const std::vector<std::int32_t>& indexes);
    void All();
    void End();

    [[nodiscard]] bool Any() const { return m_pcPage.CountChosen() > 0; }
    [[nodiscard]] std::size_t Count() const { return m_pcPage.CountChosen(); }
    /// The indexes of their views, in the order of the strip.
    [[nodiscard]] std::vector<std::int32_t> Indexes() const;
    /// What is meant by something that is done to that tab: all that are chosen when it is among them, else it alone.
    [[nodiscard]] std::vector<std::int32_t> With(const Tab& tab) const;
    /// Where the choice began: the tab that was taken in or out last, else the one in front. Nothing without tabs.
    [[nodiscard]] Tab* Anchor() const;
    void SetAnchor(const Tab& tab) { m_anchor = tab.Key(); }

    /// Other tabs are chosen than before.
    Signal<void()> Changed;

private:
    void ChooseRange(Tab& tab);
    void Settle();

    TabStrip& m_pcPage;
    Text m_anchor; ///< key of a tab, which may have gone
    std::vector<std::int32_t> m_told;
    bool m_busy = false; ///< several tabs are being chosen
    Connections m_connections;
};

} // namespace tessa
