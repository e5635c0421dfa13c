#include "groups/GroupCommands.h"

#include "base/Address.h"
#include "groups/frmGroupCheck.h"
#include "settings/InternetSettings.h"
#include "tabs/OpenTabs.h"

#include <algorithm>

namespace tessa {

void GroupCommands::AddToTessaGroup(TextView URL, TextView SGFile) {
    const bool added = TessaGroups::Append(SGFile, Address::WithoutUser(URL)) == Outcome::Done;
    Reread(SGFile);
    m_parts.tabs.Say(added ? u"Added to the TessaGroup " + NameOf(SGFile) + u"."
                           : u"The TessaGroup " + NameOf(SGFile) + u" could not be written.");
}

void GroupCommands::AddAllToTessaGroup(const std::vector<Text>& addresses, TextView SGFile) {
    const bool added = std::ranges::all_of(addresses, [&](const Text& each) {
        return TessaGroups::Append(SGFile, Address::WithoutUser(each)) == Outcome::Done;
    });
    const Text count = Decimal(static_cast<std::int64_t>(addresses.size()));
    m_parts.tabs.Say(added ? count + u" pages were added to the TessaGroup " + NameOf(SGFile) + u"."
                           : u"The TessaGroup " + NameOf(SGFile) + u" could not be written.");
}

void GroupCommands::SaveTabs(TextView path, const std::vector<std::int32_t>& indexes) {
    SaySaved(TessaGroups::SaveTabs(path, m_parts.pcPage, m_parts.Browser, m_parts.messages, indexes), path);
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
    Reread(path);
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
    form.OpenArchive = [this](const Text& address) { OpenArchive(address); };
    m_parts.forms.Show(form);
}

void GroupCommands::OpenArchive(const Text& address) {
    auto* view = m_parts.tabs.GetNewBrowser(InFront::No);
    if (view) ResumeNext(view->Navigate(ArchivedAt(InternetSettings(m_parts.settings).Archive.Get(), address)));
}

void GroupCommands::WritePages(Writes what, TextView path, TextView group) {
    if (!Write) return;
    const bool prints = what == Writes::Print;
    const Text doing = prints ? Text(u"Printing") : u"Saving " + NameOf(path);
    const Text done = prints ? Text(u"All pages have been printed.") : NameOf(path) + u" has been saved.";
    if (!prints) m_parts.tabs.Say(doing);
    const auto count = [](std::size_t number) { return Decimal(static_cast<std::int64_t>(number)); };
    Write({.what = what,
           .path = Text(path),
           .group = Text(group),
           .fetched =
               [this, doing, count](std::size_t fetched, std::size_t all) {
                   m_parts.tabs.Say(doing + u": " + count(fetched) + u" of " + count(all) + u" pages");
               },
           .made = [this, doing](int percent) { m_parts.tabs.Say(doing + u": " + Decimal(percent) + u" %"); },
           .ended =
               [this, done, count](const Text& refusal, std::size_t left) {
                   if (!refusal.empty()) return m_parts.tabs.Say(refusal);
                   const Text missing = u" " + count(left) + (left == 1 ? u" page" : u" pages") + u" could not be had.";
                   m_parts.tabs.Say(done + (left > 0 ? missing : Text()));
               }});
}

class GroupCommands::Unasked final : public MessageBoxes {
public:
    Answer AskYesNoCancel(TextView) override { return Answer::Yes; }
    bool AskOwn(const OwnQuestion&) override { return false; }
    Answer AskOwnOrCancel(const OwnQuestion&) override { return Answer::No; }
    void Inform(TextView) override {}
};

TessaGroups::Saved GroupCommands::SaveUnasked(TextView path) {
    Unasked nobody;
    return TessaGroups::SaveOpenTabs(path, m_parts.pcPage, m_parts.Browser, nobody);
}

Text GroupCommands::FileOf(TextView name) const {
    CKeyValues groups = TessaGroups::List(m_parts.groupFolder);
    const auto* group = groups.FindItem(Text(name));
    return group ? Text(group->Value) : Text();
}

void GroupCommands::OrganizeTessaGroup(TextView sFileName) {
    frmTessaGroup form(m_parts.messages, m_parts.forms,
                       {.files = &m_parts.files,
                        .groupFolder = m_parts.groupFolder,
                        .probe = Probe,
                        .openArchive = [this](const Text& address) { OpenArchive(address); }});
    form.TitleOf = [this](TextView address) { return TitleOf(address); };
    form.EditTessaGroup(sFileName);
    Reread(sFileName);
    if (form.Unwritten) m_parts.tabs.Say(u"The TessaGroup " + NameOf(sFileName) + u" could not be written.");
}

void GroupCommands::OrganizeTessaGroups() {
    const Text file = m_parts.files.ShowOpen({.DialogTitle = u"Organize TessaGroup",
                                              .InitDir = m_parts.groupFolder,
                                              .Filter = Text(TessaGroups::kFileFilter),
                                              .MustExist = true});
    if (IsGroupFile(file)) OrganizeTessaGroup(file);
}

Text GroupCommands::TitleOf(TextView address) const {
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser)) {
        if (open.View && open.Address() == address) return open.View->Control->LocationName();
    }
    return {};
}

} // namespace tessa
