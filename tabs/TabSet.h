#pragma once
#include "bar/CommandBar.h"
#include "base/Signal.h"
#include "forms/StatusBar.h"
#include "forms/TabStrip.h"
#include "platform/Dialogs.h"
#include "tabs/PageLeaving.h"
#include "tabs/ShownTabs.h"
#include "tabs/ViewArray.h"

#include <functional>
#include <vector>

namespace tessa {

enum class InFront : bool { No = false, Yes = true };
enum class TabBusy : bool { No = false, Yes = true };

/// What a tab is called until its page says more.
inline constexpr TextView kUntitledCaption = u"Loading...";

/// The tab set. It pairs each entry of the strip with a view of the array. It owns every operation that makes,
/// activates, marks, retitles or closes a tab. A tab's key is "Tab" and the view's index, its tag the index.
/// A step that finds no tab or no view does nothing. Owned by the main window; what it refers to outlives it.
class TabSet {
public:
    TabSet(TabStrip& pcPage, ViewArray& Browser, CommandBar& actBar, StatusBar& sbStatus, MessageBoxes& messages);

    /// Makes a tab right of the selected one, with a blank view for the caller to navigate. Without a view there is no
    /// tab either, and nothing is returned. The user is told when that is because the indexes have run out.
    BrowserView* GetNewBrowser(InFront inFront, Privacy privacy = Privacy::Ordinary);
    /// Of the selected tab's view, for what is opened from it.
    [[nodiscard]] Privacy CurrentPrivacy() const;
    /// Of the view `Index`.
    [[nodiscard]] Privacy PrivacyOf(std::int32_t Index) const;
    /// Where a tab that a page asks for comes.
    [[nodiscard]] InFront PlaceFor(NewWindowPlace place) const;
    /// Pairs the strip's first tab with view 1, which exists with the window.
    BrowserView* PrepareFirstTab();

    /// The activation: brings the selected tab's view forward and everything that is shown for it up to date.
    void pcPage_Click();
    /// Shows or clears the busy mark of the tab of view `Tag`, an index in decimal.
    void SetTabBusy(TextView Tag, TabBusy Busy);
    /// Marks the tab of view `Index` as one whose page waits for an answer, or takes the mark off.
    void SetTabAsks(std::int32_t Index, bool asks);
    /// The caption for a page's title: the whole title, or its first `TitleLengthLimit` characters and "...".
    void SetTabTitle(std::int32_t Index, TextView title);
    /// What a tab's page is, for its user: the name that he has given it, title and address, a line each. No more than
    /// what is readable.
    [[nodiscard]] Text Describe(const Tab& tab) const;
    /// The address of a tab's page; while it shows none, of the one that it waits for. No more than is readable.
    [[nodiscard]] Text AddressOf(const Tab& tab) const;
    /// Shows on the tab what is to be heard of the view's page.
    void UpdateSound(std::int32_t Index);
    /// Closes the tab of view `Index`, once its page lets its user go. When it is the only one, the user alone is
    /// asked, because that ends the program. The page is asked when the window closes.
    void CloseBrowserTab(std::int32_t Index);
    /// The same without asking the page.
    void CloseUnasked(std::int32_t Index);
    /// Closes the selected tab, by the same rules.
    void CloseSelectedTab();
    /// Leaves the leftmost tab and blanks it. Pinned tabs stay as they are: then it is the leftmost one of the others.
    /// Answers with the index of the view that is left; 0 when there are only pinned ones.
    std::int32_t CloseOtherTabs();
    /// Closes the tabs of these views as one command.
    void CloseTabs(const std::vector<std::int32_t>& indexes);

    /// The tab right of the selected one, after the last the first; nothing with fewer than two tabs.
    void SelectNextTab();
    /// The tab left of the selected one, before the first the last.
    void SelectPreviousTab();

    /// Shows in the address box where the selected view's page comes from, and how far that can be trusted.
    void ShowAddress();
    /// Shows an address of the page shown there. Its sign too, when that is the view's address.
    void ShowAddress(TextView URL);
    /// Shows there where the selected view is about to go, with a sign that says so.
    void ShowTarget(TextView URL);
    /// Notes with the tab of view `Index` which page it waits for; empty for none.
    void SetTabAwaited(std::int32_t Index, TextView URL);
    /// Whether the user has typed into a box of the window since the view's page began to load.
    [[nodiscard]] bool TypedSince(const ArrayView& view) const;
    /// Shows in the status bar how large the text of the selected view's page is.
    void UpdateZoom();
    void UpdateBackForward();
    void UpdateStopRefresh();
    void ShowStatusText(TextView Text);
    /// Says in the status bar, long enough to be read, what the program has done. `undo` takes it back.
    void Say(TextView words, std::function<void()> undo = {}) { m_sbStatus.Say(words, std::move(undo)); }
    /// Nothing that was said can be taken back any more.
    void WithdrawSaid() { m_sbStatus.Withdraw(); }
    void ShowStatusBar(bool Show);
    void ToggleStatusBar() { ShowStatusBar(!m_sbStatus.Visible()); }

    /// How often the user has typed into the window's boxes.
    [[nodiscard]] std::size_t TypedSoFar() const { return m_actBar.Typed(); }
    /// The address box.
    [[nodiscard]] ComboTool* AddressCombo() const;
    /// The view of the selected tab, or nothing.
    [[nodiscard]] ArrayView* CurrentView() const;
    /// The index of the selected tab's view; 0 without a selected tab.
    [[nodiscard]] std::int32_t CurrentIndex() const;
    /// The view `Index`, or nothing once its tab has gone. A command keeps the index of the view that it began with. It
    /// finds the view again behind a dialog, whatever tab is selected by then.
    [[nodiscard]] ArrayView* OpenView(std::int32_t Index) const;
    /// The views that follow the selected one; none but for linked panes.
    [[nodiscard]] std::vector<ArrayView*> Followers() const;
    /// Lays the selected view over the page area, and those beside it.
    void PlaceShown();
    [[nodiscard]] bool IsSelected(std::int32_t Index) const;
    /// Whether a tab shows the view of that index.
    [[nodiscard]] bool IsOpen(std::int32_t Index) const;

    PageLeaving Leaving;
    std::int32_t NextBrowserIndex = 1;
    /// The most characters of a title that a tab shows; below 1 there is no limit.
    std::int32_t TitleLengthLimit = 0;
    /// Whether a tab that a page asks for comes to the front.
    bool OpenNewInFront = true;
    /// Which pages are shown beside others; without it each is shown alone.
    const ShownTabs* Together = nullptr;

    /// A view is to be laid over the page area.
    Signal<void(ArrayView&)> PlaceView;
    /// The whole window is to be laid out.
    Signal<void()> Resize;
    /// The window is to close.
    Signal<void()> CloseWindow;
    /// A tab has come, with the view of that index. It is not selected yet.
    Signal<void(std::int32_t Index)> Opened;
    /// One command is about to close several tabs, and has closed them. One of them may only be blanked.
    Signal<void()> ClosingSeveral, ClosedSeveral;
    Signal<void(std::int32_t Index)> Blanking;
    /// The command that closes several tabs has asked that one's page, and is done with it when the page answers.
    Signal<void(std::int32_t Index)> Awaiting;
    /// One of several tabs is about to be closed; its view still lives.
    Signal<void(std::int32_t Index)> Closing;

private:
    BrowserView* AddTab(ArrayView& view, std::int32_t index, InFront inFront);
    void TellWhenIndexesRanOut(std::int32_t index);
    void CloseOneOfSeveral(std::int32_t Index);
    void BlankTab(std::int32_t Index);
    void WhenLeft(std::int32_t Index, std::function<void()> then);
    void AsOneCommand(const std::function<void()>& close);
    void ForgetGone();
    std::vector<std::int32_t> ShowBeside(std::int32_t Index);

    TabStrip& m_pcPage;
    ViewArray& m_browser;
    CommandBar& m_actBar;
    StatusBar& m_sbStatus;
    MessageBoxes& m_messages;
    std::vector<std::int32_t> m_gone; ///< views of closed tabs whose pages somebody may still wait for
    bool m_closingSeveral = false;
};

} // namespace tessa
