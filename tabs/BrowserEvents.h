#pragma once
#include "base/Signal.h"
#include "tabs/TabSet.h"

namespace tessa {

/// Keeps strip, address box, status bar and command enabling in step with the views. A view that is not selected
/// changes only its own tab.
class BrowserEvents final : public BrowserViewEvents {
public:
    /// Both must outlive the views that report here; they may still be under construction.
    BrowserEvents(TabSet& tabs, ViewArray& Browser) : m_tabs(tabs), m_browser(Browser) {}

    void StatusTextChange(std::int16_t Index, TextView Text) override;
    void CommandStateChange(std::int16_t Index, HistoryCommand Command, bool Enable) override;
    void DownloadBegin(std::int16_t Index) override;
    void DownloadComplete(std::int16_t Index) override;
    void TitleChange(std::int16_t Index, TextView Text) override;
    void BeforeNavigate2(std::int16_t Index, PageLevel pDisp, TextView URL) override;
    BrowserView* NewWindow2(std::int16_t Index, NewWindowPlace Place) override;
    void NavigateComplete2(std::int16_t Index, PageLevel pDisp, TextView URL) override;
    void DocumentComplete(std::int16_t Index, PageLevel pDisp, TextView URL) override;
    void NavigationOverdue(std::int16_t Index) override;
    void SecurityChange(std::int16_t Index) override;
    void NavigationDropped(std::int16_t Index) override;
    void AttentionChange(std::int16_t Index, bool Asks) override;
    void ContextMenu(std::int16_t Index, const PageContext& Context) override;
    void WindowClosing(std::int16_t Index) override;
    void SoundChange(std::int16_t Index) override;

    /// A view shows another address or title than before.
    Signal<void()> Navigated;
    /// A view is about to go to that address.
    Signal<void(std::int16_t Index, TextView URL)> Begins;
    /// It shows that address, or another document that comes from there.
    Signal<void(std::int16_t Index, TextView URL)> Shows;
    /// A view's page has loaded, or its load has ended otherwise.
    Signal<void(std::int16_t Index)> Loaded;
    /// Shows the menu of the page in front.
    Signal<void(std::int16_t Index, const PageContext& Context)> ShowMenu;

private:
    void ShowIdle(std::int16_t Index, PageLevel pDisp, TextView URL, bool mayFocus);
    [[nodiscard]] bool TakeMayFocus(ArrayView* view, PageLevel pDisp, bool Focusing::*what) const;
    void BeginNavigation(std::int16_t Index, TextView URL);

    TabSet& m_tabs;
    ViewArray& m_browser;
};

} // namespace tessa
