#include "groups/GroupCommands.h"

#include "base/Address.h"
#include "base/PlainText.h"
#include "groups/frmGroupCheck.h"
#include "settings/InternetSettings.h"
#include "tabs/OpenTabs.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tessa {

namespace {

constexpr std::size_t kLongestMissing = 200;

// As many of them as there is room for.
Text Missing(const std::vector<Text>& left) {
    if (left.empty()) return {};
    Text names;
    for (const Text& each : left) names += (names.empty() ? u"" : u", ") + each;
    const Text count = left.size() == 1 ? Text(u"1 page") : Decimal(static_cast<std::int64_t>(left.size())) + u" pages";
    return u" " + count + u" could not be had: " + PlainLine(names, kLongestMissing);
}

} // namespace

void GroupCommands::AddToTessaGroup(TextView URL, TextView SGFile) {
    const bool added = TessaGroups::Append(SGFile, {Address::WithoutUser(URL)}) == Outcome::Done;
    Reread(SGFile);
    m_parts.tabs.Say(added ? u"Added to the TessaGroup " + NameOf(SGFile) + u"."
                           : u"The TessaGroup " + NameOf(SGFile) + u" could not be written.");
}

void GroupCommands::AddTabsToTessaGroup(const std::vector<std::int32_t>& indexes, TextView SGFile) {
    std::vector<GroupTab> tabs;
    std::vector<Text> addresses;
    for (const std::int32_t index : indexes) {
        const auto* view = m_parts.tabs.OpenView(index);
        const Text address = view ? Address::WithoutUser(view->Control->LocationURL()) : Text();
        if (!view || (address.empty() && indexes.size() > 1)) continue;
        tabs.push_back({index, address});
        addresses.push_back(address);
    }
    Reread(SGFile);
    std::vector<std::int32_t> known = m_parts.tabGroups.OpenedFrom(SGFile);
    std::erase_if(known, [this](std::int32_t group) { return m_parts.tabGroups.IsOvertaken(group); });
    if (TessaGroups::Append(SGFile, addresses) != Outcome::Done)
        return m_parts.tabs.Say(u"The TessaGroup " + NameOf(SGFile) + u" could not be written.");
    for (const GroupTab& each : tabs) Join(each.Index, OpenFrom(SGFile), each.Address);
    Reread(SGFile);
    for (const std::int32_t each : known) m_parts.tabGroups.Agree(each);
    const Text pages =
        tabs.size() == 1 ? Text(u"Added") : Decimal(static_cast<std::int64_t>(tabs.size())) + u" pages were added";
    m_parts.tabs.Say(pages + u" to the TessaGroup " + NameOf(SGFile) + u".");
}

// The group that was opened last, but rather that of the tab in front.
std::int32_t GroupCommands::OpenFrom(TextView path) const {
    const auto groups = m_parts.tabGroups.OpenedFrom(path);
    const auto* front = m_parts.tabGroups.Of(m_parts.tabs.CurrentIndex());
    if (front && std::ranges::find(groups, front->Id()) != groups.end()) return front->Id();
    return groups.empty() ? 0 : groups.back();
}

// Behind the group's last tab, as the address stands in its file. A tab of another group is wanted there.
void GroupCommands::Join(std::int32_t index, std::int32_t group, const Text& entry) {
    const auto* tab = TabOfView(m_parts.pcPage, index);
    const auto* joined = m_parts.pcPage.FindGroup(group);
    if (!tab || !joined || tab->Pinned() || tab->Group()) return;
    const auto last = m_parts.pcPage.PositionOf(m_parts.pcPage.TabsOf(joined).back());
    m_parts.pcPage.Move(tab, m_parts.pcPage.PositionOf(tab) < last ? last : last + 1);
    m_parts.tabGroups.Add(index, group, entry);
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
    frmGroupCheck form(m_parts.probe, groups);
    form.OpenArchive.ConnectForLife([this](const Text& address) { OpenArchive(address); });
    m_parts.forms.Show(form);
}

void GroupCommands::OpenArchive(const Text& address) {
    auto* view = m_parts.tabs.GetNewBrowser(InFront::No);
    if (view) ResumeNext(view->Navigate(ArchivedAt(InternetSettings(m_parts.settings).Archive.Get(), address)));
}

void GroupCommands::WritePages(Writes what, TextView path, TextView group) {
    if (!Write.HasListeners()) return;
    const bool prints = what == Writes::Print;
    const Text doing = prints ? Text(u"Printing") : u"Saving " + NameOf(path);
    const Text done = prints ? Text(u"All pages have been printed.") : NameOf(path) + u" has been saved.";
    if (!prints) m_parts.tabs.Say(doing);
    const auto count = [](std::size_t number) { return Decimal(static_cast<std::int64_t>(number)); };
    // Who thinks better of it has nothing to stop.
    const auto begun = std::make_shared<bool>(false);
    const auto say = [this, doing, begun](const Text& how) {
        if (!std::exchange(*begun, true)) m_progress.Hold();
        m_parts.tabs.Say(doing + u": " + how);
    };
    Write({.what = what,
           .path = Text(path),
           .group = Text(group),
           .fetched = [say, count](std::size_t fetched,
                                   std::size_t all) { say(count(fetched) + u" of " + count(all) + u" pages"); },
           .made = [say](int percent) { say(Decimal(percent) + u" %"); },
           .ended =
               [this, done, begun](const Text& refusal, const std::vector<Text>& left) {
                   if (std::exchange(*begun, false)) m_progress.Release();
                   m_parts.tabs.Say(refusal.empty() ? done + Missing(left) : refusal);
               },
           .stop = &Stops});
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
                        .probe = &m_parts.probe,
                        .titleOf = [this](TextView address) { return TitleOf(address); }});
    form.OpenArchive.ConnectForLife([this](const Text& address) { OpenArchive(address); });
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
