#include "tabs/BrowserEvents.h"

#include <utility>

namespace tessa {

void BrowserEvents::StatusTextChange(std::int16_t Index, TextView Text) {
    if (m_tabs.IsSelected(Index)) m_tabs.ShowStatusText(Text);
}

void BrowserEvents::CommandStateChange(std::int16_t Index, HistoryCommand Command, bool Enable) {
    if (auto* view = m_browser.Find(Index)) {
        if (Command == HistoryCommand::NavigateForward) view->ForwardFlag = Enable ? 1 : 0;
        if (Command == HistoryCommand::NavigateBack) view->Tag = Enable ? u"1" : u"0";
    }
    if (m_tabs.IsSelected(Index)) m_tabs.UpdateBackForward();
}

void BrowserEvents::DownloadBegin(std::int16_t) { m_tabs.UpdateStopRefresh(); }

void BrowserEvents::DownloadComplete(std::int16_t) { m_tabs.UpdateStopRefresh(); }

void BrowserEvents::TitleChange(std::int16_t Index, TextView Text) {
    m_tabs.SetTabTitle(Index, Text);
    Navigated();
}

void BrowserEvents::BeforeNavigate2(std::int16_t Index, PageLevel pDisp, TextView URL) {
    if (pDisp == PageLevel::Top) BeginNavigation(Index, URL);
    if (pDisp == PageLevel::Top) Begins(Index, URL);
    m_tabs.SetTabBusy(Decimal(Index), TabBusy::Yes);
}

BrowserView* BrowserEvents::NewWindow2(std::int16_t Index, NewWindowPlace Place) {
    return m_tabs.GetNewBrowser(m_tabs.PlaceFor(Place), m_tabs.PrivacyOf(Index));
}

// A document that is complete takes the keyboard, whoever types. A page can change its address, or load a frame, as
// often as it likes. That takes the focus from nobody who types, and a frame does so only once.
bool BrowserEvents::TakeMayFocus(ArrayView* view, PageLevel pDisp, bool Focusing::*what) const {
    if (!view) return false;
    if (pDisp == PageLevel::Frame) return std::exchange(view->MayFocus.Frame, false) && !m_tabs.TypedSince(*view);
    return std::exchange(view->MayFocus.*what, false) || !m_tabs.TypedSince(*view);
}

// Deliberate: a tab turns idle as soon as its navigation completes, before the document has. The completion of any
// frame clears the mark too.
void BrowserEvents::NavigateComplete2(std::int16_t Index, PageLevel pDisp, TextView URL) {
    ShowIdle(Index, pDisp, URL, TakeMayFocus(m_browser.Find(Index), pDisp, &Focusing::Address));
    if (pDisp == PageLevel::Top) Shows(Index, URL);
    Navigated();
}

void BrowserEvents::DocumentComplete(std::int16_t Index, PageLevel pDisp, TextView URL) {
    ShowIdle(Index, pDisp, URL, TakeMayFocus(m_browser.Find(Index), pDisp, &Focusing::Document));
    if (pDisp == PageLevel::Top) Loaded(Index);
}

// Nothing new is shown, so the keyboard stays where it is.
void BrowserEvents::NavigationDropped(std::int16_t Index) { m_tabs.SetTabBusy(Decimal(Index), TabBusy::No); }

void BrowserEvents::NavigationOverdue(std::int16_t Index) {
    m_tabs.SetTabAwaited(Index, {});
    if (m_tabs.IsSelected(Index)) m_tabs.ShowAddress();
}

void BrowserEvents::SecurityChange(std::int16_t Index) {
    const auto* address = m_tabs.AddressCombo();
    // While the box shows where the page goes, its sign is of that.
    if (m_tabs.IsSelected(Index) && address && !address->Sign().Waiting) m_tabs.ShowAddress();
}

void BrowserEvents::BeginNavigation(std::int16_t Index, TextView URL) {
    if (auto* view = m_browser.Find(Index)) {
        view->MayFocus = {.Address = true, .Document = true, .Frame = true};
        view->TypedBefore = m_tabs.TypedSoFar();
    }
    m_tabs.SetTabAwaited(Index, URL);
    if (!m_tabs.IsSelected(Index)) return;
    m_tabs.ShowTarget(URL);
    m_tabs.UpdateZoom();
    m_tabs.UpdateStopRefresh();
}

void BrowserEvents::ShowIdle(std::int16_t Index, PageLevel pDisp, TextView URL, bool mayFocus) {
    auto* view = m_browser.Find(Index);
    if (pDisp == PageLevel::Top) m_tabs.SetTabAwaited(Index, {});
    if (m_tabs.IsSelected(Index)) {
        if (pDisp == PageLevel::Top) m_tabs.ShowAddress(URL);
        m_tabs.UpdateZoom();
        m_tabs.UpdateStopRefresh();
        if (view) view->Control->BringToFront();
        if (view && mayFocus) view->Control->SetFocus();
    }
    m_tabs.SetTabBusy(Decimal(Index), TabBusy::No);
}

void BrowserEvents::AttentionChange(std::int16_t Index, bool Asks) { m_tabs.SetTabAsks(Index, Asks); }

void BrowserEvents::ContextMenu(std::int16_t Index, const PageContext& Context) {
    if (m_tabs.IsSelected(Index)) ShowMenu(Index, Context);
}

void BrowserEvents::WindowClosing(std::int16_t Index) {
    // The user may have closed the tab while its page was closing itself. Then nothing is left to close or to ask.
    if (m_tabs.IsOpen(Index)) m_tabs.CloseUnasked(Index);
}

void BrowserEvents::SoundChange(std::int16_t Index) { m_tabs.UpdateSound(Index); }

} // namespace tessa
