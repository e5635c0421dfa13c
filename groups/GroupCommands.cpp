#include "groups/GroupCommands.h"

#include "common/Address.h"
#include "common/Captions.h"

namespace {

/// The group as a person knows it: the name of its file, without ".tvg".
Text NameOf(TextView path) {
    const auto separator = path.find_last_of(u"/\\");
    TextView name = separator == TextView::npos ? path : path.substr(separator + 1);
    if (GroupCommands::IsGroupFile(name)) name.remove_suffix(TessaGroups::kExtension.size());
    return OneLine(name);
}

} // namespace

GroupCommands::GroupCommands(Parts parts) : m_parts(parts), m_progress(parts.sbStatus) {
    m_parts.sbStatus.StopAll.Click = [this] { StopAll(); };
}

void GroupCommands::OpenTessaGroups(const std::vector<Text>& groups) {
    std::vector<Text> addresses;
    Text unread;
    for (const Text& group : groups) {
        if (!TessaGroups::IsReadable(group)) unread = group;
        for (const auto& address : TessaGroups::Load(group)) addresses.push_back(address.Key);
    }
    Open(addresses);
    if (!unread.empty()) m_parts.tabs.ShowStatusText(u"The TessaGroup " + NameOf(unread) + u" could not be read.");
}

void GroupCommands::Open(const std::vector<Text>& addresses) {
    auto& tabs = m_parts.tabs;
    if (!TGCloseOthersFirst) return OpenInTabs(addresses);
    tabs.CloseOtherTabs();
    if (addresses.empty()) return;
    m_progress.Begin();
    auto* current = tabs.CurrentView();
    Show(current ? current->Control.get() : nullptr, addresses.front());
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
    m_parts.tabs.ShowStatusText(added ? u"Added to the TessaGroup " + NameOf(SGFile) + u"."
                                      : u"The TessaGroup " + NameOf(SGFile) + u" could not be written.");
}

void GroupCommands::SaveAsTessaGroup(TextView path) {
    using TessaGroups::Saved;
    const Saved saved = TessaGroups::SaveOpenTabs(path, m_parts.pcPage, m_parts.Browser, m_parts.messages);
    if (saved == Saved::Yes) m_parts.tabs.ShowStatusText(u"Saved as the TessaGroup " + NameOf(path) + u".");
    if (saved == Saved::Failed)
        m_parts.tabs.ShowStatusText(u"The TessaGroup " + NameOf(path) + u" could not be written.");
    if (saved == Saved::Nothing)
        m_parts.tabs.ShowStatusText(u"There was nothing to save as the TessaGroup " + NameOf(path) + u".");
}

void GroupCommands::OrganizeTessaGroup(TextView sFileName) {
    frmTessaGroup form(m_parts.messages);
    form.ShowModal = ShowEditor;
    form.TitleOf = [this](TextView address) { return TitleOf(address); };
    form.EditTessaGroup(sFileName);
    if (form.Unwritten) m_parts.tabs.ShowStatusText(u"The TessaGroup " + NameOf(sFileName) + u" could not be written.");
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
    const auto& pcPage = m_parts.pcPage;
    for (std::size_t position = 1; position <= pcPage.Count(); ++position) {
        const std::int32_t index = pcPage.FindAt(position)->Tag;
        auto* view = m_parts.Browser.Find(index);
        if (!view) continue;
        ResumeNext(view->Control->Stop());
        view = m_parts.Browser.Find(index);
        const auto* tab = pcPage.FindAt(position);
        // A page that had not begun will never say its title.
        const bool untitled = view && tab && tab->Tag == index && tab->Caption() == kUntitledCaption;
        if (untitled) m_parts.tabs.SetTabTitle(index, view->Control->LocationURL());
    }
}

Text GroupCommands::TitleOf(TextView address) const {
    for (std::size_t position = 1; position <= m_parts.pcPage.Count(); ++position) {
        const auto* view = m_parts.Browser.Find(m_parts.pcPage.FindAt(position)->Tag);
        if (view && view->Control->LocationURL() == address) return view->Control->LocationName();
    }
    return {};
}
