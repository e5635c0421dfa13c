#include "tabs/TabSet.h"

#include "bar/ToolName.h"
#include "base/Address.h"
#include "base/Text.h"
#include "tabs/AddressSigns.h"
#include "tabs/TabKeys.h"

namespace tessa {

namespace {

constexpr TextView kNoMoreTabs = u"No more tabs can be opened until TessaView is started again.";

constexpr int kUsualPercent = 100;

/// Units of a title or an address that anybody reads.
constexpr std::size_t kMostDescribed = 300;

} // namespace

TabSet::TabSet(TabStrip& pcPage, ViewArray& Browser, CommandBar& actBar, StatusBar& sbStatus, MessageBoxes& messages)
    : Leaving(pcPage, Browser),
      m_pcPage(pcPage),
      m_browser(Browser),
      m_actBar(actBar),
      m_sbStatus(sbStatus),
      m_messages(messages) {
    m_pcPage.Click.ConnectForLife([this] { pcPage_Click(); });
}

BrowserView* TabSet::PrepareFirstTab() {
    if (auto* tab = m_pcPage.Add(1, KeyOfTab(1))) {
        tab->Tag = 1;
        m_pcPage.SetCaption(tab, Text(kUntitledCaption));
    }
    NextBrowserIndex = 2;
    auto* view = m_browser.Find(1);
    if (!view) return nullptr;
    view->Control->SetVisible(true);
    PlaceView(*view);
    view->Unpark();
    view->Control->BringToFront();
    ResumeNext(view->Control->Navigate(Address::kBlank));
    return view->Control.get();
}

BrowserView* TabSet::GetNewBrowser(InFront inFront, Privacy privacy) {
    const std::int32_t index = NextBrowserIndex;
    if (auto* view = m_browser.Load(index, privacy)) return AddTab(*view, index, inFront);
    ++NextBrowserIndex;
    TellWhenIndexesRanOut(index);
    return nullptr;
}

BrowserView* TabSet::AddTab(ArrayView& view, std::int32_t index, InFront inFront) {
    view.Control->SetVisible(true);
    ResumeNext(view.Control->Navigate(Address::kBlank));
    auto* tab = m_pcPage.Add(m_pcPage.PositionOf(m_pcPage.SelectedItem()) + 1, KeyOfTab(index));
    if (tab) tab->Tag = index;
    if (tab) Opened(index);
    if (tab) m_pcPage.SetPrivate(tab, view.Privacy == Privacy::Private);
    ++NextBrowserIndex;
    if (tab) m_pcPage.SetCaption(tab, Text(kUntitledCaption));
    if (tab && inFront == InFront::Yes) m_pcPage.Select(tab);
    return view.Control.get();
}

void TabSet::TellWhenIndexesRanOut(std::int32_t index) {
    if (index > ViewArray::kLastIndex) ShowStatusText(kNoMoreTabs);
}

void TabSet::pcPage_Click() {
    const auto* selected = m_pcPage.SelectedItem();
    if (!selected) return;
    if (auto* view = m_browser.Find(selected->Tag)) {
        PlaceView(*view);
        // In a minimised window it has no place yet, but is the view in front all the same.
        view->Unpark();
        view->Control->SetVisible(true);
        view->Control->BringToFront();
        view->Control->SetFocus();
    }
    m_browser.ParkAllBut(selected->Tag, ShowBeside(selected->Tag));
    UpdateBackForward();
    UpdateStopRefresh();
    ShowAddress();
    UpdateZoom();
}

std::vector<std::int32_t> TabSet::ShowBeside(std::int32_t Index) {
    if (!Together) return {};
    auto beside = Together->BesideOf(Index);
    for (const std::int32_t each : beside) {
        auto* view = OpenView(each);
        if (!view) continue;
        PlaceView(*view);
        view->Unpark();
        view->Control->SetVisible(true);
        view->Control->ShowBeside();
    }
    return beside;
}

Privacy TabSet::PrivacyOf(std::int32_t Index) const {
    const auto* view = m_browser.Find(Index);
    return view ? view->Privacy : Privacy::Ordinary;
}

Privacy TabSet::CurrentPrivacy() const {
    const auto* view = CurrentView();
    return view ? view->Privacy : Privacy::Ordinary;
}

InFront TabSet::PlaceFor(NewWindowPlace place) const {
    if (place == NewWindowPlace::InFront) return InFront::Yes;
    return OpenNewInFront == (place == NewWindowPlace::AsSet) ? InFront::Yes : InFront::No;
}

void TabSet::UpdateZoom() {
    const auto* view = CurrentView();
    const int level = view && view->Control->Document() ? view->Control->ZoomLevel() : -1;
    const bool known = level >= 0 && level < static_cast<int>(PageDocument::kPercents.size());
    const int percent = known ? PageDocument::kPercents.at(static_cast<std::size_t>(level)) : kUsualPercent;
    m_sbStatus.Zoom = percent == kUsualPercent ? Text() : Decimal(percent) + u" %";
}

void TabSet::ShowAddress() {
    if (const auto* view = CurrentView()) ShowAddress(view->Control->LocationURL());
}

void TabSet::ShowAddress(TextView URL) {
    const auto* view = CurrentView();
    auto* address = AddressCombo();
    if (!view || !address) return;
    // What is known of the security holds for the address that the view itself goes by, and for no other.
    const bool own = view->Control->LocationURL() == URL;
    address->ShowSigned(Text(URL), AddressSigns::Of(own ? view->Control->Security() : PageSecurity::None, URL));
}

void TabSet::ShowTarget(TextView URL) {
    const auto* view = CurrentView();
    auto* address = AddressCombo();
    if (!view || !address) return;
    const bool shows = view->Control->Security() != PageSecurity::Awaited;
    const Text shown = shows ? view->Control->LocationURL() : Text();
    address->ShowSigned(Text(URL), AddressSigns::Waiting(URL, shown));
}

void TabSet::SetTabAwaited(std::int32_t Index, TextView URL) {
    if (auto* tab = TabOfView(m_pcPage, Index)) m_pcPage.SetAwaited(tab, Text(URL));
}

bool TabSet::TypedSince(const ArrayView& view) const {
    return m_actBar.Edited() || m_actBar.Typed() != view.TypedBefore;
}

void TabSet::UpdateBackForward() {
    const auto* view = CurrentView();
    if (!view) return;
    m_actBar.Enable(u"mnuGoBack"_tool, view->Tag == u"1");
    m_actBar.Enable(u"mnuGoForward"_tool, view->ForwardFlag != 0);
}

void TabSet::UpdateStopRefresh() {
    const auto* view = CurrentView();
    if (!view) return;
    const bool busy = view->Control->Busy();
    m_actBar.Enable(u"mnuRefresh"_tool, !busy);
    m_actBar.Enable(u"mnuStop"_tool, busy);
}

void TabSet::SetTabBusy(TextView Tag, TabBusy Busy) {
    if (auto* tab = m_pcPage.Find(Text(u"Tab").append(Tag))) {
        m_pcPage.SetImage(tab, Busy == TabBusy::Yes ? TabImage::Red : TabImage::None);
    }
}

void TabSet::SetTabAsks(std::int32_t Index, bool asks) {
    if (auto* tab = TabOfView(m_pcPage, Index)) m_pcPage.SetAsks(tab, asks);
}

void TabSet::SetTabTitle(std::int32_t Index, TextView title) {
    auto* tab = TabOfView(m_pcPage, Index);
    if (!tab) return;
    const bool whole = TitleLengthLimit < 1 || title.size() <= static_cast<std::size_t>(TitleLengthLimit);
    if (whole) {
        m_pcPage.SetCaption(tab, Text(title));
        return;
    }
    // Deliberate: the dots come on top of the limit.
    m_pcPage.SetCaption(tab, Text(FirstUnits(title, static_cast<std::size_t>(TitleLengthLimit))) + u"...",
                        Text(FirstUnits(title, kMostDescribed)));
}

Text TabSet::Describe(const Tab& tab) const {
    const auto* view = m_browser.Find(tab.Tag);
    if (!view) return tab.Shown();
    const Text title = view->Control->LocationName(), address = view->Control->LocationURL();
    Text first = (title.empty() ? tab.Title() : title).substr(0, kMostDescribed);
    if (!tab.Name().empty()) first = tab.Name() + u"\n" + first;
    Text all = address.empty() ? first : first + u"\n" + address.substr(0, kMostDescribed);
    if (!tab.Awaited().empty() && tab.Awaited() != address)
        all += u"\nWaiting for " + tab.Awaited().substr(0, kMostDescribed);
    if (!tab.NewsWords().empty()) all += u"\n" + tab.NewsWords();
    if (view->Privacy == Privacy::Private) all += u"\nPrivate tab: nothing of it is kept";
    return all;
}

Text TabSet::AddressOf(const Tab& tab) const {
    const auto* view = m_browser.Find(tab.Tag);
    const Text shown = view ? view->Control->LocationURL() : Text();
    const bool none = shown.empty() || (view && view->Control->Blank()) || shown == u"about:blank";
    const Text& address = none && !tab.Awaited().empty() ? tab.Awaited() : shown;
    return Text(FirstUnits(address, kMostDescribed));
}

void TabSet::UpdateSound(std::int32_t Index) {
    auto* tab = TabOfView(m_pcPage, Index);
    const auto* view = m_browser.Find(Index);
    if (!tab || !view) return;
    const TabSound heard = view->Control->Audible() ? TabSound::Playing : TabSound::None;
    m_pcPage.SetSound(tab, view->Control->Muted() ? TabSound::Muted : heard);
}

void TabSet::SelectNextTab() {
    if (m_pcPage.Count() < 2) return;
    const std::size_t position = m_pcPage.PositionOf(m_pcPage.SelectedItem());
    m_pcPage.Select(m_pcPage.FindAt(position == m_pcPage.Count() ? 1 : position + 1));
}

void TabSet::SelectPreviousTab() {
    const std::size_t position = m_pcPage.PositionOf(m_pcPage.SelectedItem());
    m_pcPage.Select(m_pcPage.FindAt(position == 1 ? m_pcPage.Count() : position - 1));
}

void TabSet::ShowStatusText(TextView Text) { m_sbStatus.SimpleText = tessa::Text(Text); }

void TabSet::ShowStatusBar(bool Show) {
    if (auto* tool = m_actBar.Find(u"mnuViewStatusbar"_tool)) tool->Checked = Show;
    m_actBar.RecalcLayout();
    m_sbStatus.Visible = Show;
    Resize();
}

ComboTool* TabSet::AddressCombo() const { return m_actBar.FindCombo(u"cboAddress"_tool); }

ArrayView* TabSet::CurrentView() const {
    const auto* selected = m_pcPage.SelectedItem();
    return selected ? m_browser.Find(selected->Tag) : nullptr;
}

std::int32_t TabSet::CurrentIndex() const {
    const auto* selected = m_pcPage.SelectedItem();
    return selected ? selected->Tag : 0;
}

std::vector<ArrayView*> TabSet::Followers() const {
    std::vector<ArrayView*> views;
    if (!Together) return views;
    for (const std::int32_t each : Together->LinkedWith(CurrentIndex())) {
        if (auto* view = OpenView(each)) views.push_back(view);
    }
    return views;
}

void TabSet::PlaceShown() {
    if (auto* view = CurrentView()) PlaceView(*view);
    if (!Together) return;
    for (const std::int32_t each : Together->BesideOf(CurrentIndex())) {
        if (auto* view = OpenView(each)) PlaceView(*view);
    }
}

// View 1 outlives its tab.
ArrayView* TabSet::OpenView(std::int32_t Index) const { return IsOpen(Index) ? m_browser.Find(Index) : nullptr; }

bool TabSet::IsOpen(std::int32_t Index) const { return TabOfView(m_pcPage, Index) != nullptr; }

bool TabSet::IsSelected(std::int32_t Index) const {
    const auto* selected = m_pcPage.SelectedItem();
    return selected && selected->Tag == Index;
}

} // namespace tessa
