#include "groups/GroupCommands.h"

#include "base/Address.h"
#include "base/Captions.h"
#include "base/LinkTrust.h"
#include "base/os/Paths.h"
#include "tabs/OpenTabs.h"
#include "tabs/TabKeys.h"

#include <algorithm>

namespace tessa {

namespace {

/// More pages of a group that somebody else may have made open only when the user wants them.
constexpr std::size_t kManyPages = 100;
constexpr std::size_t kAskedAddress = 300;

/// The group as the user knows it: the name of its file, without ".tvg".
Text NameOf(TextView path) {
    const auto separator = path.find_last_of(u"/\\");
    TextView name = separator == TextView::npos ? path : path.substr(separator + 1);
    if (GroupCommands::IsGroupFile(name)) name.remove_suffix(TessaGroups::kExtension.size());
    return OneLine(name);
}

} // namespace

GroupCommands::GroupCommands(Parts parts) : m_parts(parts), m_progress(parts.sbStatus) {
    m_parts.sbStatus.StopAll.Click.ConnectForLife([this] { StopAll(); });
}

void GroupCommands::OpenTessaGroups(const std::vector<Text>& groups) {
    std::vector<Text> addresses;
    std::size_t foreign = 0;
    Text unread;
    for (const Text& group : groups) {
        if (!TessaGroups::IsReadable(group)) unread = group;
        const std::size_t before = addresses.size();
        for (const auto& address : TessaGroups::Load(group)) addresses.push_back(address.Key);
        Opening(NameOf(group), {addresses.begin() + static_cast<std::ptrdiff_t>(before), addresses.end()});
        if (!IsOwnGroup(group)) foreign += addresses.size() - before;
    }
    if (foreign > kManyPages && !MayOpenMany(addresses.size())) return;
    const auto left = LeaveUntrusted(addresses);
    if (!left) return;
    Open(addresses);
    if (*left > 0) m_parts.tabs.Say(u"What is no page of the web was not opened.");
    if (!unread.empty()) m_parts.tabs.Say(u"The TessaGroup " + NameOf(unread) + u" could not be read.");
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
std::optional<std::size_t> GroupCommands::LeaveUntrusted(std::vector<Text>& addresses) const {
    const std::size_t all = addresses.size();
    std::erase_if(addresses, [](const Text& each) { return TrustOf(each, LinkSource::Group) == LinkTrust::Never; });
    const auto isAsked = [](const Text& each) { return TrustOf(each, LinkSource::Group) == LinkTrust::Ask; };
    const auto first = std::ranges::find_if(addresses, isAsked);
    if (first == addresses.end()) return all - addresses.size();
    const auto others = static_cast<std::int64_t>(std::ranges::count_if(addresses, isAsked)) - 1;
    const Text shown = OneLine(FirstUnits(*first, kAskedAddress));
    const bool one = others == 0;
    const OwnQuestion question{u"This TessaGroup does not lead to the web alone, but also to",
                               one ? shown : shown + u"\nand " + Decimal(others) + u" more",
                               one ? u"&Leave It Out" : u"&Leave Them Out", one ? u"&Open It Too" : u"&Open Them Too"};
    const Answer answer = MayAsk ? m_parts.messages.AskOwnOrCancel(question) : Answer::No;
    if (answer == Answer::Cancel) return std::nullopt;
    if (answer == Answer::No) std::erase_if(addresses, isAsked);
    return all - addresses.size();
}

void GroupCommands::Open(const std::vector<Text>& addresses) {
    auto& tabs = m_parts.tabs;
    if (!TGCloseOthersFirst) return OpenInTabs(addresses);
    tabs.CloseOtherTabs();
    if (addresses.empty()) return;
    m_progress.Begin();
    // A page that holds its user keeps its tab.
    auto* current = tabs.Leaving.Asks(tabs.CurrentIndex()) ? nullptr : tabs.CurrentView();
    if (!current) return OpenEach(addresses);
    Show(current->Control.get(), addresses.front());
    OpenEach(std::span(addresses).subspan(1));
}

void GroupCommands::OpenInTabs(const std::vector<Text>& addresses) {
    m_progress.Begin();
    OpenEach(addresses);
}

void GroupCommands::OpenEach(std::span<const Text> addresses) {
    for (const Text& address : addresses) Show(m_parts.tabs.GetNewBrowser(InFront::Yes), address);
}

void GroupCommands::Show(BrowserView* view, TextView address) {
    if (!view) return;
    ResumeNext(view->Navigate(address));
    if (const auto* tab = m_parts.pcPage.SelectedItem()) m_progress.Add(tab->Tag);
}

void GroupCommands::AddToTessaGroup(TextView URL, TextView SGFile) {
    const bool added = TessaGroups::Append(SGFile, Address::WithoutUser(URL)) == Outcome::Done;
    m_parts.tabs.Say(added ? u"Added to the TessaGroup " + NameOf(SGFile) + u"."
                           : u"The TessaGroup " + NameOf(SGFile) + u" could not be written.");
}

void GroupCommands::SaveAsTessaGroup(TextView path) {
    using TessaGroups::Saved;
    const Saved saved = TessaGroups::SaveOpenTabs(path, m_parts.pcPage, m_parts.Browser, m_parts.messages);
    if (saved == Saved::Yes) m_parts.tabs.Say(u"Saved as the TessaGroup " + NameOf(path) + u".");
    if (saved == Saved::Failed) m_parts.tabs.Say(u"The TessaGroup " + NameOf(path) + u" could not be written.");
    if (saved == Saved::Nothing)
        m_parts.tabs.Say(u"There was nothing to save as the TessaGroup " + NameOf(path) + u".");
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
