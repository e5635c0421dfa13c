#pragma once
#include "forms/TabStrip.h"
#include "tabs/ViewArray.h"

#include <iterator>

namespace tessa {

/// One of the open tabs, with its view.
struct OpenTab {
    std::size_t Position; ///< counted from 1
    Tab& Item;
    ArrayView* View; ///< nothing when the view is gone, or has not come yet

    /// The view's index.
    [[nodiscard]] std::int32_t Index() const { return Item.Tag; }
    /// The address that the page shows; empty without a view.
    [[nodiscard]] Text Address() const { return View ? View->Control->LocationURL() : Text(); }
    [[nodiscard]] bool Private() const { return View && View->Privacy == Privacy::Private; }
    /// What the page's life can be asked for; nothing without a view or a page.
    [[nodiscard]] PageLife* Life() const { return View ? View->Control->Life() : nullptr; }
};

/// All open tabs, in the order of the strip. Each step looks at the next position anew, so tabs may come and go
/// meanwhile. An `OpenTab` is good only until then.
class OpenTabs {
public:
    class Iterator {
    public:
        using difference_type = std::ptrdiff_t;
        using value_type = OpenTab;

        Iterator() = default;
        explicit Iterator(const OpenTabs& tabs) : m_tabs(&tabs) {}
        OpenTab operator*() const {
            Tab& tab = *m_tabs->m_pcPage.FindAt(m_position);
            return {m_position, tab, m_tabs->m_browser.Find(tab.Tag)};
        }
        Iterator& operator++() {
            ++m_position;
            return *this;
        }
        void operator++(int) { ++*this; }
        bool operator==(std::default_sentinel_t) const { return m_position > m_tabs->m_pcPage.Count(); }

    private:
        const OpenTabs* m_tabs = nullptr;
        std::size_t m_position = 1;
    };

    /// Both outlive the range.
    OpenTabs(const TabStrip& pcPage, ViewArray& Browser) : m_pcPage(pcPage), m_browser(Browser) {}

    [[nodiscard]] Iterator begin() const { return Iterator(*this); }
    [[nodiscard]] std::default_sentinel_t end() const { return {}; }

private:
    const TabStrip& m_pcPage;
    ViewArray& m_browser;
};

} // namespace tessa
