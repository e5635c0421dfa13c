#pragma once
#include "tabs/TabSet.h"

#include <functional>
#include <string>
#include <vector>

/// The tabs that were closed last, so that a slip of the hand costs nothing. Owned by the main window; what it refers
/// to outlives it.
class ClosedTabs {
public:
    /// More are forgotten, the oldest first.
    static constexpr std::size_t kMost = 25;

    ClosedTabs(TabSet& tabs, TabStrip& pcPage, ViewArray& Browser)
        : m_tabs(tabs), m_pcPage(pcPage), m_browser(Browser) {}

    /// Keeps the tab of view `Index`, which is about to be closed. A blank page is not worth it.
    void Remember(std::int32_t Index);
    /// Brings the tab closed last back to its place and to the front, with where its page has been. Does nothing when
    /// there is none.
    void Reopen();
    [[nodiscard]] bool IsEmpty() const { return m_closed.empty(); }

    /// Whether there is one to bring back may have changed.
    std::function<void()> Changed;

private:
    struct ClosedTab {
        Text Address;
        std::string History;
        std::size_t Position = 0;
    };

    TabSet& m_tabs;
    TabStrip& m_pcPage;
    ViewArray& m_browser;
    std::vector<ClosedTab> m_closed; ///< the one closed last at the end
};
