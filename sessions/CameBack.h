#pragma once
#include "tabs/TabSet.h"

#include <vector>

namespace tessa {

/// The pages of the session before that this start has opened by itself. What the user has not touched since may give
/// its place to the pages of a session that he reopens. Owned by the session's journal.
class CameBack {
public:
    /// All outlive this object.
    CameBack(TabSet& tabs, TabStrip& pcPage, ViewArray& Browser) : m_tabs(tabs), m_pcPage(pcPage), m_browser(Browser) {}

    /// View `Index` was sent to an address by the start alone.
    void Note(std::int32_t Index, TextView address);
    /// The views of those pages that nobody has done anything in or with, in the order in which they came.
    [[nodiscard]] std::vector<std::int32_t> Untouched() const;
    /// Forgets them all: each is the user's own from now on.
    void Forget() { m_pages.clear(); }

private:
    struct Page {
        std::int32_t index;
        Text address;
        std::size_t typed; ///< how often the user had typed into the window's boxes when the page came
    };
    [[nodiscard]] bool IsUntouched(const Page& page) const;

    TabSet& m_tabs;
    TabStrip& m_pcPage;
    ViewArray& m_browser;
    std::vector<Page> m_pages;
};

} // namespace tessa
