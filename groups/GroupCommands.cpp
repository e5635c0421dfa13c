#include "groups/GroupCommands.h"

#include "base/Address.h"
#include "base/Captions.h"
#include "base/LinkTrust.h"
#include "base/os/Paths.h"
#include "groups/frmGroupCheck.h"
#include "tabs/OpenTabs.h"
#include "tabs/TabKeys.h"

#include <algorithm>

namespace tessa {

namespace {

/// More pages of a group that somebody else may have made open only when the user wants them.
constexpr std::size_t kManyPages = 100;
constexpr std::size_t kAskedAddress = 300;
/// Where older copies of pages are looked for.
constexpr TextView kArchive = u"https://web.archive.org/web/";

/// The group as the user knows it: the name of its file, without ".tvg".
Text NameOf(TextView path) {
    const auto separator = path.find_last_of(u"/\\");
    TextView name = separator == TextView::npos ? path : path.substr(separator + 1);
    if (GroupCommands::IsGroupFile(name)) name.remove_suffix(TessaGroups::kExtension.size());
    return OneLine(name);
}

/// The page that was kept beside a group's file, by the path from there; empty when it is none.
Text KeptPage(TextView group, TextView address) {
    const bool inside = address.find(u':') == TextView::npos && address.find(u"..") == TextView::npos;
    if (!inside || !address.ends_with(u".mhtml") || address.starts_with(u'/')) return {};
    const Text path = PathFromBytes(FolderAbove(AbsolutePath(PathToBytes(group)))) + u"/" + Text(address);
    return WhatLiesAt(PathToBytes(path)) == Lies::Other ? path : Text();
}

} // namespace

GroupCommands::GroupCommands(Parts parts) : m_parts(parts), m_progress(parts.sbStatus) {
    m_parts.sbStatus.StopAll.Click.ConnectForLife([this] { StopAll(); });
}

std::vector<std::int32_t> GroupCommands::OpenTessaGroups(const std::vector<Text>& groups) {
    m_opened.clear();
    std::vector<Page> pages;
    Manner manner{.closeOthers = TGCloseOthersFirst, .behind = !groups.empty()};
    std::size_t foreign = 0;
    Text unread;
    for (const Text& group : groups) {
        if (!TessaGroups::IsReadable(group)) unread = group;
        const std::size_t before = pages.size();
        Manner own;
        for (Page& page : PagesOf(group, own)) pages.push_back(std::move(page));
        manner.closeOthers |= own.closeOthers;
        manner.behind &= own.behind;
        std::vector<Text> addresses;
        for (std::size_t i = before; i < pages.size(); ++i) addresses.push_back(pages[i].address);
        Opening(NameOf(group), addresses);
        if (!IsOwnGroup(group)) foreign += pages.size() - before;
    }
    if (foreign > kManyPages && !MayOpenMany(pages.size())) return {};
    const auto left = LeaveUntrusted(pages);
    if (!left) return {};
    Open(pages, manner);
    if (*left > 0) m_parts.tabs.Say(u"What is no page of the web was not opened.");
    if (!unread.empty()) m_parts.tabs.Say(u"The TessaGroup " + NameOf(unread) + u" could not be read.");
    return m_opened;
}

bool GroupCommands::IsOwnGroup(TextView group) const {
    return IsSameFolder(FolderAbove(PathToBytes(group)), PathToBytes(m_parts.groupFolder));
}

bool GroupCommands::MayOpenMany(std::size_t count) const {
    if (!MayAsk) return false;
    const Text question = u"Open all " + Decimal(static_cast<std::int64_t>(count)) + u" pages?";
    return m_parts.messages.AskOwn({question, {}, u"&Cancel", u"&Open Them All"});
}

// Anybody may have written a group and sent it. So what is no page of the web opens when its user says so, or not at
// all.
std::optional<std::size_t> GroupCommands::LeaveUntrusted(std::vector<Page>& pages) const {
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

std::vector<GroupCommands::Page> GroupCommands::PagesOf(const Text& group, Manner& manner) const {
    const GroupPlan plan = GroupPlan::Of(group);
    manner = {.closeOthers = plan.closeOthers, .behind = plan.behind};
    std::vector<Text> addresses;
    for (const auto& address : TessaGroups::Load(group)) addresses.push_back(address.Key);
    std::vector<Page> pages;
    for (const Text& address : plan.Ordered(addresses)) {
        const Text kept = KeptPage(group, address);
        pages.push_back({kept.empty() ? address : kept, group, plan.For(address), !kept.empty()});
    }
    return pages;
}

void GroupCommands::Open(const std::vector<Page>& pages, Manner manner) {
    auto& tabs = m_parts.tabs;
    if (manner.closeOthers) tabs.CloseOtherTabs();
    if (manner.closeOthers && pages.empty()) return;
    m_progress.Begin();
    // A page that holds its user keeps its tab.
    const bool taken = manner.closeOthers && !tabs.Leaving.Asks(tabs.CurrentIndex());
    auto* current = taken ? tabs.CurrentView() : nullptr;
    if (!current) return OpenEach(pages, manner.behind);
    Show(current->Control.get(), pages.front());
    OpenEach(std::span(pages).subspan(1), manner.behind);
}

void GroupCommands::OpenInTabs(const std::vector<Text>& addresses) {
    m_opened.clear();
    std::vector<Page> pages;
    for (const Text& address : addresses) pages.push_back({address});
    m_progress.Begin();
    OpenEach(pages, false);
}

// What opens behind comes right of the one before, as what opens in front does by itself.
void GroupCommands::OpenEach(std::span<const Page> pages, bool behind) {
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
void GroupCommands::MoveBehind(const Tab* tab, const Tab* other) {
    const std::size_t from = m_parts.pcPage.PositionOf(tab), place = m_parts.pcPage.PositionOf(other);
    if (from > 0 && place > 0 && from != place) m_parts.pcPage.Move(tab, from < place ? place : place + 1);
}

void GroupCommands::OpenBehind(const Page& page, const Tab* behind) {
    auto& tabs = m_parts.tabs;
    const std::int32_t index = tabs.NextBrowserIndex;
    auto* view = tabs.GetNewBrowser(InFront::No);
    const auto* tab = view ? TabOfView(m_parts.pcPage, index) : nullptr;
    if (!tab) return;
    MoveBehind(tab, behind);
    ResumeNext(page.plan.asleep ? view->RestoreLater({}, page.address) : view->Navigate(page.address));
    // Until it is looked at it says no title.
    if (page.plan.asleep)
        tabs.SetTabTitle(index, page.address);
    else
        m_progress.Add(index);
    Note(index, page);
}

void GroupCommands::Show(BrowserView* view, const Page& page) {
    if (!view) return;
    ResumeNext(view->Navigate(page.address));
    const auto* tab = m_parts.pcPage.SelectedItem();
    if (!tab) return;
    m_progress.Add(tab->Tag);
    Note(tab->Tag, page);
}

void GroupCommands::Note(std::int32_t index, const Page& page) {
    m_opened.push_back(index);
    m_groups[index] = page.group;
    auto* view = m_parts.Browser.Find(index);
    if (view && page.plan.muted) view->Control->SetMuted(true);
    if (page.plan.textSize) m_textSizes[index] = *page.plan.textSize;
}

void GroupCommands::PageDone(std::int32_t index) {
    m_progress.Done(index);
    ApplyTextSize(index);
}

// Only a page that is there has a size.
void GroupCommands::ApplyTextSize(std::int32_t index) {
    const auto wanted = m_textSizes.find(index);
    auto* view = wanted == m_textSizes.end() ? nullptr : m_parts.Browser.Find(index);
    auto* document = view ? view->Control->Document() : nullptr;
    if (!document) return;
    ResumeNext(document->Zoom(wanted->second));
    m_textSizes.erase(wanted);
    if (m_parts.tabs.IsSelected(index)) m_parts.tabs.UpdateZoom();
}

void GroupCommands::AddToTessaGroup(TextView URL, TextView SGFile) {
    const bool added = TessaGroups::Append(SGFile, Address::WithoutUser(URL)) == Outcome::Done;
    m_parts.tabs.Say(added ? u"Added to the TessaGroup " + NameOf(SGFile) + u"."
                           : u"The TessaGroup " + NameOf(SGFile) + u" could not be written.");
}

void GroupCommands::SaveAsTessaGroup(TextView path) {
    using TessaGroups::Saved;
    const Saved saved = TessaGroups::SaveOpenTabs(path, m_parts.pcPage, m_parts.Browser, m_parts.messages);
    SaySaved(saved, path);
}

void GroupCommands::SaveAddresses(TextView path, const std::vector<Text>& addresses) {
    SaySaved(TessaGroups::Save(path, addresses, m_parts.messages), path);
}

void GroupCommands::SaySaved(TessaGroups::Saved saved, TextView path) {
    using TessaGroups::Saved;
    if (saved == Saved::Yes) m_parts.tabs.Say(u"Saved as the TessaGroup " + NameOf(path) + u".");
    if (saved == Saved::Failed) m_parts.tabs.Say(u"The TessaGroup " + NameOf(path) + u" could not be written.");
    if (saved == Saved::Nothing)
        m_parts.tabs.Say(u"There was nothing to save as the TessaGroup " + NameOf(path) + u".");
}

void GroupCommands::CheckAll() {
    std::vector<Text> groups;
    for (const auto& group : TessaGroups::List(m_parts.groupFolder)) groups.push_back(group.Value);
    groups.empty() ? m_parts.tabs.Say(u"There are no TessaGroups to check.") : Check(groups);
}

void GroupCommands::Check(const std::vector<Text>& groups) {
    if (!Probe) return;
    frmGroupCheck form(*Probe, groups);
    form.OpenArchive = [this](const Text& address) {
        auto* view = m_parts.tabs.GetNewBrowser(InFront::No);
        if (view) ResumeNext(view->Navigate(Text(kArchive) + address));
    };
    m_parts.forms.Show(form);
}

void GroupCommands::WriteTabs(Writes what, TextView path) {
    if (!Write) return;
    m_parts.tabs.Say(u"Saving " + NameOf(path));
    Write(what, Text(path), [this, name = NameOf(path)](const Text& refusal, std::size_t left) {
        if (!refusal.empty()) return m_parts.tabs.Say(refusal);
        const Text missing = u" pages could not be had.";
        m_parts.tabs.Say(name + u" has been saved." +
                         (left > 0 ? u" " + Decimal(static_cast<std::int64_t>(left)) + missing : Text()));
    });
}

namespace {

/// Answers for a user who is not there.
class Unasked final : public MessageBoxes {
public:
    Answer AskYesNoCancel(TextView) override { return Answer::Yes; }
    bool AskOwn(const OwnQuestion&) override { return false; }
    Answer AskOwnOrCancel(const OwnQuestion&) override { return Answer::No; }
    void Inform(TextView) override {}
};

} // namespace

TessaGroups::Saved GroupCommands::SaveUnasked(TextView path) {
    Unasked nobody;
    return TessaGroups::SaveOpenTabs(path, m_parts.pcPage, m_parts.Browser, nobody);
}

Text GroupCommands::GroupOf(std::int32_t index) const {
    const auto found = m_groups.find(index);
    return found == m_groups.end() ? Text() : found->second;
}

Text GroupCommands::FileOf(TextView name) const {
    CKeyValues groups = TessaGroups::List(m_parts.groupFolder);
    const auto* group = groups.FindItem(Text(name));
    return group ? Text(group->Value) : Text();
}

void GroupCommands::OrganizeTessaGroup(TextView sFileName) {
    frmTessaGroup form(m_parts.messages, m_parts.forms);
    form.TitleOf = [this](TextView address) { return TitleOf(address); };
    form.EditTessaGroup(sFileName);
    if (form.Unwritten) m_parts.tabs.Say(u"The TessaGroup " + NameOf(sFileName) + u" could not be written.");
}

void GroupCommands::OrganizeTessaGroups() {
    const Text file = m_parts.files.ShowOpen({.DialogTitle = u"Organize TessaGroup",
                                              .InitDir = m_parts.groupFolder,
                                              .Filter = Text(TessaGroups::kFileFilter),
                                              .MustExist = true});
    if (IsGroupFile(file)) OrganizeTessaGroup(file);
}

void GroupCommands::StopAll() {
    // First, because a page that is stopped says that it is done.
    m_progress.Stop();
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser)) {
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

Text GroupCommands::TitleOf(TextView address) const {
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser)) {
        if (open.View && open.Address() == address) return open.View->Control->LocationName();
    }
    return {};
}

} // namespace tessa
