#include "groups/GroupOpening.h"

#include "base/Captions.h"
#include "base/LinkTrust.h"
#include "base/os/Paths.h"
#include "groups/TessaGroups.h"
#include "tabs/OpenTabs.h"
#include "tabs/TabKeys.h"

#include <algorithm>

namespace tessa {

namespace {

/// More pages of a group that somebody else may have made open only when the user wants them.
constexpr std::size_t kManyPages = 100;
constexpr std::size_t kAskedAddress = 300;

/// The page that was kept beside a group's file, by the path from there; empty when it is none.
Text KeptPage(TextView group, TextView address) {
    const bool inside = address.find(u':') == TextView::npos && address.find(u"..") == TextView::npos;
    if (!inside || !address.ends_with(u".mhtml") || address.starts_with(u'/')) return {};
    const Text path = PathFromBytes(FolderAbove(AbsolutePath(PathToBytes(group)))) + u"/" + Text(address);
    return WhatLiesAt(PathToBytes(path)) == Lies::Other ? path : Text();
}

} // namespace

Text GroupOpening::NameOf(TextView path) {
    const auto separator = path.find_last_of(u"/\\");
    TextView name = separator == TextView::npos ? path : path.substr(separator + 1);
    if (IsGroupFile(name)) name.remove_suffix(TessaGroups::kExtension.size());
    return OneLine(name);
}

GroupOpening::GroupOpening(Parts parts) : m_parts(parts), m_progress(parts.sbStatus) {
    m_parts.sbStatus.StopAll.Click.ConnectForLife([this] { StopAll(); });
}

std::vector<std::int32_t> GroupOpening::OpenTessaGroups(const std::vector<Text>& groups) {
    m_opened.clear();
    m_openings.clear();
    Opened all{.manner = {.closeOthers = TGCloseOthersFirst, .behind = !groups.empty()}};
    for (const Text& group : groups) Read(group, all);
    if (all.foreign > kManyPages && !MayOpenMany(all.pages.size())) return {};
    const std::vector<Page> wanted = all.pages;
    const auto left = LeaveUntrusted(all.pages);
    if (!left) return {};
    if (*left > 0) NoteLeftOut(wanted, all.pages);
    Open(all.pages, all.manner);
    ShowPanes();
    if (*left > 0) m_parts.tabs.Say(u"What is no page of the web was not opened.");
    if (!all.unread.empty()) m_parts.tabs.Say(u"The TessaGroup " + NameOf(all.unread) + u" could not be read.");
    return m_opened;
}

void GroupOpening::Read(const Text& group, Opened& all) {
    if (!TessaGroups::IsReadable(group)) all.unread = group;
    const GroupPlan plan = GroupPlan::In(group);
    all.manner.closeOthers |= plan.closeOthers;
    all.manner.behind &= plan.behind;
    m_openings.push_back({FileAt(group, plan), plan.panes});
    Opening& opening = m_openings.back();
    for (const Text& address : opening.source.All) {
        const Text kept = KeptPage(group, address);
        opening.indexes.push_back(0);
        all.pages.push_back({kept.empty() ? address : kept, m_openings.size(), opening.indexes.size(), address,
                             plan.For(address), !kept.empty()});
    }
    if (!IsOwnGroup(group)) all.foreign += opening.source.All.size();
}

GroupSource GroupOpening::FileAt(TextView path, const GroupPlan& plan) {
    std::vector<Text> addresses;
    for (const auto& address : TessaGroups::Load(path)) addresses.push_back(address.Key);
    return {.Path = Text(path),
            .All = plan.Ordered(addresses),
            .Colour = ColourNamed(plan.colour),
            .IsThere = TessaGroups::IsReadable(path)};
}

GroupSource GroupOpening::FileAt(TextView path) { return FileAt(path, GroupPlan::In(path)); }

// What was not opened is no difference between file and tabs.
void GroupOpening::NoteLeftOut(const std::vector<Page>& all, const std::vector<Page>& pages) {
    auto kept = pages.begin();
    for (const Page& each : all) {
        const bool opens = kept != pages.end() && kept->group == each.group && kept->number == each.number;
        if (opens)
            ++kept;
        else
            m_openings.at(each.group - 1).source.LeftOut.push_back(each.entry);
    }
}

std::vector<GroupOpening::Unasked> GroupOpening::AllUnasked(const Text& group) {
    std::vector<Text> addresses;
    for (const auto& address : TessaGroups::Load(group)) addresses.push_back(address.Key);
    std::vector<Unasked> all;
    for (const Text& address : GroupPlan::In(group).Ordered(addresses)) {
        if (address.empty()) continue;
        const Text kept = KeptPage(group, address);
        const bool opens = TrustOf(address, LinkSource::Group) == LinkTrust::Open;
        all.push_back({address, !kept.empty() ? kept : opens ? address : Text()});
    }
    return all;
}

bool GroupOpening::IsOwnGroup(TextView group) const {
    return IsSameFolder(FolderAbove(PathToBytes(group)), PathToBytes(m_parts.groupFolder));
}

bool GroupOpening::MayOpenMany(std::size_t count) const {
    if (!MayAsk) return false;
    const Text question = u"Open all " + Decimal(static_cast<std::int64_t>(count)) + u" pages?";
    return m_parts.messages.AskOwn({question, {}, u"&Cancel", u"&Open Them All"});
}

// Anybody may have written a group and sent it. So what is no page of the web opens when its user says so, or not at
// all.
std::optional<std::size_t> GroupOpening::LeaveUntrusted(std::vector<Page>& pages) const {
    const std::size_t all = pages.size();
    std::erase_if(pages, [](const Page& each) {
        return !each.kept && TrustOf(each.address, LinkSource::Group) == LinkTrust::Never;
    });
    const auto isAsked = [](const Page& each) {
        return !each.kept && TrustOf(each.address, LinkSource::Group) == LinkTrust::Ask;
    };
    const auto first = std::ranges::find_if(pages, isAsked);
    if (first == pages.end()) return all - pages.size();
    const auto others = static_cast<std::int64_t>(std::ranges::count_if(pages, isAsked)) - 1;
    const Text shown = OneLine(FirstUnits(first->address, kAskedAddress));
    const bool one = others == 0;
    const OwnQuestion question{u"This TessaGroup does not lead to the web alone, but also to",
                               one ? shown : shown + u"\nand " + Decimal(others) + u" more",
                               one ? u"&Leave It Out" : u"&Leave Them Out", one ? u"&Open It Too" : u"&Open Them Too"};
    const Answer answer = MayAsk ? m_parts.messages.AskOwnOrCancel(question) : Answer::No;
    if (answer == Answer::Cancel) return std::nullopt;
    if (answer == Answer::No) std::erase_if(pages, isAsked);
    return all - pages.size();
}

void GroupOpening::Open(const std::vector<Page>& pages, Manner manner) {
    auto& tabs = m_parts.tabs;
    const std::int32_t left = manner.closeOthers ? tabs.CloseOtherTabs() : 0;
    if (manner.closeOthers && pages.empty()) return;
    m_progress.Begin();
    LeavePins(left);
    // A page that holds its user keeps its tab.
    const bool taken = left != 0 && !tabs.Leaving.Asks(tabs.CurrentIndex());
    auto* current = taken ? tabs.CurrentView() : nullptr;
    if (!current) return OpenEach(pages, manner.behind);
    Show(current->Control.get(), pages.front());
    OpenEach(std::span(pages).subspan(1), manner.behind);
}

// A pinned tab keeps its page.
void GroupOpening::LeavePins(std::int32_t left) {
    const auto* front = m_parts.pcPage.SelectedItem();
    auto* tab = TabOfView(m_parts.pcPage, left);
    if (front && front->Pinned() && tab) m_parts.pcPage.Select(tab);
}

void GroupOpening::OpenInTabs(const std::vector<Text>& addresses) {
    m_opened.clear();
    m_openings.clear();
    std::vector<Page> pages;
    for (const Text& address : addresses) pages.push_back({address});
    m_progress.Begin();
    OpenEach(pages, false);
}

// What opens behind comes right of the one before, as what opens in front does by itself.
void GroupOpening::OpenEach(std::span<const Page> pages, bool behind) {
    const Tab* last = m_parts.pcPage.SelectedItem();
    for (const Page& page : pages) {
        const bool anyBehind = m_parts.pcPage.SelectedItem() != last;
        if (behind || page.plan.asleep) {
            OpenBehind(page, last);
        } else {
            Show(m_parts.tabs.GetNewBrowser(InFront::Yes), page);
            if (anyBehind) MoveBehind(m_parts.pcPage.SelectedItem(), last);
        }
        if (!m_opened.empty()) last = TabOfView(m_parts.pcPage, m_opened.back());
    }
}

// Taken out before the other one, it leaves that a place further left.
void GroupOpening::MoveBehind(const Tab* tab, const Tab* other) {
    const std::size_t from = m_parts.pcPage.PositionOf(tab), place = m_parts.pcPage.PositionOf(other);
    if (from > 0 && place > 0 && from != place) m_parts.pcPage.Move(tab, from < place ? place : place + 1);
}

void GroupOpening::OpenBehind(const Page& page, const Tab* behind) {
    auto& tabs = m_parts.tabs;
    const std::int32_t index = tabs.NextBrowserIndex;
    auto* view = tabs.GetNewBrowser(InFront::No);
    const auto* tab = view ? TabOfView(m_parts.pcPage, index) : nullptr;
    if (!tab) return;
    MoveBehind(tab, behind);
    Note(index, page);
    ResumeNext(page.plan.asleep ? view->RestoreLater({}, page.address) : view->Navigate(page.address));
    // Until it is looked at it says no title.
    if (page.plan.asleep)
        tabs.SetTabTitle(index, page.address);
    else
        Await(index);
}

void GroupOpening::Show(BrowserView* view, const Page& page) {
    const auto* tab = view ? m_parts.pcPage.SelectedItem() : nullptr;
    const std::int32_t index = tab ? tab->Tag : 0;
    if (tab) Note(index, page);
    if (view) ResumeNext(view->Navigate(page.address));
    if (tab) Await(index);
}

void GroupOpening::Await(std::int32_t index) {
    m_progress.Add(index);
    if (auto* tab = TabOfView(m_parts.pcPage, index)) m_parts.pcPage.SetQueued(tab, true);
}

void GroupOpening::Note(std::int32_t index, const Page& page) {
    m_opened.push_back(index);
    if (page.group != 0) Group(index, page);
    auto* view = m_parts.Browser.Find(index);
    if (view && page.plan.muted) view->Control->SetMuted(true);
    if (page.plan.textSize) m_textSizes[index] = *page.plan.textSize;
}

void GroupOpening::PageDone(std::int32_t index) {
    m_progress.Done(index);
    if (auto* tab = TabOfView(m_parts.pcPage, index)) m_parts.pcPage.SetQueued(tab, false);
    ApplyTextSize(index);
}

// Only a page that is there has a size.
void GroupOpening::ApplyTextSize(std::int32_t index) {
    const auto wanted = m_textSizes.find(index);
    auto* view = wanted == m_textSizes.end() ? nullptr : m_parts.Browser.Find(index);
    auto* document = view ? view->Control->Document() : nullptr;
    if (!document) return;
    ResumeNext(document->Zoom(wanted->second));
    m_textSizes.erase(wanted);
    if (m_parts.tabs.IsSelected(index)) m_parts.tabs.UpdateZoom();
}

void GroupOpening::Group(std::int32_t index, const Page& page) {
    Opening& opening = m_openings.at(page.group - 1);
    auto& groups = m_parts.tabGroups;
    opening.indexes.at(page.number - 1) = index;
    if (!m_parts.pcPage.FindGroup(opening.begun))
        opening.begun = groups.Begin(index, NameOf(opening.source.Path), opening.source);
    groups.Add(index, opening.begun, page.entry);
}

// Whoever keeps panes wants to see them, unless another tab is to stay in front.
void GroupOpening::ShowPanes() {
    for (const Opening& each : m_openings) {
        m_parts.tiles.Restore(each.panes, each.indexes);
        const TabGroup* front = m_parts.tabGroups.Of(m_parts.tabs.CurrentIndex());
        if (!front || front->Id() != each.begun || m_parts.tiles.Shown()) continue;
        const auto pane =
            std::ranges::find_if(each.indexes, [this](std::int32_t index) { return m_parts.tiles.IsInPane(index); });
        auto* tab = pane == each.indexes.end() ? nullptr : TabOfView(m_parts.pcPage, *pane);
        if (tab) m_parts.pcPage.Select(tab);
    }
}

void GroupOpening::Restore(const KeptGroups& kept, const std::vector<std::int32_t>& indexes) {
    for (const KeptGroup& each : kept.Groups) m_parts.tabGroups.Restore(each, FileAt(each.Path), indexes);
    for (const std::int32_t each : kept.Pins) {
        const auto place = static_cast<std::size_t>(each) - 1;
        auto* tab = place < indexes.size() ? TabOfView(m_parts.pcPage, indexes[place]) : nullptr;
        if (tab) m_parts.pcPage.SetPinned(tab, true);
    }
}

void GroupOpening::StopAll() {
    // First, because a page that is stopped says that it is done.
    m_progress.Stop();
    Stops();
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser)) {
        m_parts.pcPage.SetQueued(&open.Item, false);
        if (!open.View) continue;
        const std::int32_t index = open.Index();
        ResumeNext(open.View->Control->Stop());
        // It may have closed tabs.
        const auto* view = m_parts.Browser.Find(index);
        const auto* tab = TabOfView(m_parts.pcPage, index);
        // A page that had not begun will never say its title.
        const bool untitled = view && tab && tab->Caption() == kUntitledCaption;
        if (untitled) m_parts.tabs.SetTabTitle(index, view->Control->LocationURL());
    }
}

} // namespace tessa
