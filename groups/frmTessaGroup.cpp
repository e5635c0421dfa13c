#include "groups/frmTessaGroup.h"

#include "base/Captions.h"
#include "groups/TessaGroups.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr TextView kInsert = u"Insert";
constexpr TextView kUpdate = u"Update";
// Deliberate: the words stand as they have always stood.
constexpr TextView kLastAddress = u"A TessaGroup must have at least on web site associated with it. "
                                  u"Please add another site address before deleting this one.";
constexpr TextView kLineEnds = u"\r\n";
constexpr TextView kBlanks = u" \t";

bool IsBlank(TextView line) { return line.find_first_not_of(kBlanks) == TextView::npos; }

std::vector<Text> ColourNames() {
    std::vector<Text> names{u"None"};
    for (const TextView each : kTabColours) {
        names.emplace_back(each);
        names.back().front() = static_cast<char16_t>(each.front() - u'a' + u'A');
    }
    return names;
}

} // namespace

frmTessaGroup::frmTessaGroup(MessageBoxes& messages, FormHost& forms, Outside outside)
    : cboColour(u"Tab colour", ColourNames()), m_messages(messages), m_forms(forms), m_outside(std::move(outside)) {
    cmdUp.Click.ConnectForLife([this] { cmdUp_Click(); });
    cmdDown.Click.ConnectForLife([this] { cmdDown_Click(); });
    cmdInsert.Click.ConnectForLife([this] { cmdInsert_Click(); });
    cmdUpdate.Click.ConnectForLife([this] { cmdUpdate_Click(); });
    cmdDelete.Click.ConnectForLife([this] { cmdDelete_Click(); });
    cmdOK.Click.ConnectForLife([this] { cmdOK_Click(); });
    cmdCancel.Click.ConnectForLife([this] { cmdCancel_Click(); });
    cmdUrlInsert.Click.ConnectForLife([this] { cmdUrlInsert_Click(); });
    Cancel.Click.ConnectForLife([this] { Cancel_Click(); });
    lstUrls.GotFocus.ConnectForLife([this] { RefreshButtons(); });
    lstUrls.ListIndex.Change.ConnectForLife([this] { RefreshButtons(); });
    lstUrls.DblClick.ConnectForLife([this] { lstUrls_DblClick(); });
    cmdCheck.Click.ConnectForLife([this] { cmdCheck_Click(); });
    cmdCompare.Click.ConnectForLife([this] { cmdCompare_Click(); });
}

void frmTessaGroup::EditTessaGroup(TextView sFileName) {
    for (const auto& address : TessaGroups::Load(sFileName)) lstUrls.AddItem(address.Key);
    if (lstUrls.ListCount() > 0) lstUrls.ListIndex = 0;
    m_fileName = sFileName;
    LoadPlan();
    const auto separator = sFileName.find_last_of(u"/\\");
    if (separator != TextView::npos) lblTessaGroupName.Caption = OneLine(sFileName.substr(separator + 1));
    RefreshButtons();
    m_forms.Show(*this);
}

void frmTessaGroup::RefreshButtons() {
    // While an address is being entered the list rests, and so do its buttons.
    if (Frame1.Visible()) return;
    cmdUpdate.Enabled = lstUrls.ListIndex() != -1;
    cmdDelete.Enabled = cmdUpdate.Enabled();
    cmdInsert.Enabled = true;
    cmdCheck.Enabled = m_outside.probe != nullptr;
    cmdCompare.Enabled = m_outside.files != nullptr;
}

void frmTessaGroup::MoveEntry(std::size_t from, std::size_t to) {
    if (from >= lstUrls.ListCount() || to >= lstUrls.ListCount() || from == to) return;
    Text address = lstUrls.Rows()[from];
    lstUrls.RemoveItem(from);
    lstUrls.AddItem(std::move(address), to);
    lstUrls.ListIndex = static_cast<std::int32_t>(to);
}

void frmTessaGroup::cmdUp_Click() {
    const std::int32_t index = lstUrls.ListIndex();
    if (index > 0) MoveEntry(static_cast<std::size_t>(index), static_cast<std::size_t>(index) - 1);
}

void frmTessaGroup::cmdDown_Click() {
    const std::int32_t index = lstUrls.ListIndex();
    if (index >= 0) MoveEntry(static_cast<std::size_t>(index), static_cast<std::size_t>(index) + 1);
}

void frmTessaGroup::cmdInsert_Click() { Enter(kInsert, {}); }

void frmTessaGroup::cmdUpdate_Click() {
    const Text* selected = lstUrls.FindSelected();
    Enter(kUpdate, selected ? *selected : Text());
}

void frmTessaGroup::lstUrls_DblClick() {
    if (lstUrls.FindSelected() && cmdUpdate.Enabled()) cmdUpdate_Click();
}

void frmTessaGroup::Enter(TextView caption, Text url) {
    Frame1.Visible = true;
    Height = kExpanded;
    cmdUrlInsert.Caption = Text(caption);
    txtUrl.Value = std::move(url);
    txtUrl.SetFocus();
    cmdInsert.Enabled = false;
    cmdUpdate.Enabled = false;
    cmdDelete.Enabled = false;
    cmdCheck.Enabled = false;
    cmdCompare.Enabled = false;
    lstUrls.Enabled = false;
}

void frmTessaGroup::cmdUrlInsert_Click() {
    const Text text = txtUrl.Value();
    if (cmdUrlInsert.Caption() == kInsert)
        InsertLines(text);
    else
        UpdateSelected(text);
    Cancel_Click();
}

void frmTessaGroup::InsertLines(TextView text) {
    if (text.find_first_of(kLineEnds) == TextView::npos) {
        if (!text.empty()) lstUrls.AddItem(Text(text));
        return;
    }
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of(kLineEnds), text.size());
        if (!IsBlank(text.substr(0, end))) lstUrls.AddItem(Text(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void frmTessaGroup::UpdateSelected(TextView text) {
    // One address stays one, also when it was broken into lines where it comes from.
    Text line(text);
    std::erase_if(line, [](char16_t unit) { return kLineEnds.find(unit) != TextView::npos; });
    const Text* before = lstUrls.FindSelected();
    if (line.empty() || !before) return;
    m_plan.Copy(*before, line);
    NoteUpdated(*before, line);
    lstUrls.Set(static_cast<std::size_t>(lstUrls.ListIndex()), std::move(line));
}

// What it leads to now lies in the pane of what it led to. An address may be there several times.
void frmTessaGroup::NoteUpdated(const Text& before, const Text& line) {
    const auto selected = lstUrls.Rows().begin() + lstUrls.ListIndex();
    auto again = std::count(lstUrls.Rows().begin(), selected, before);
    const auto opened =
        std::ranges::find_if(m_opened, [&](const Text& each) { return each == before && again-- == 0; });
    if (opened != m_opened.end()) *opened = line;
}

void frmTessaGroup::Cancel_Click() {
    Frame1.Visible = false;
    Height = kCollapsed;
    lstUrls.Enabled = true;
    lstUrls.SetFocus();
}

void frmTessaGroup::cmdDelete_Click() {
    const std::int32_t index = lstUrls.ListIndex();
    if (index != -1 && lstUrls.ListCount() == 1) m_messages.Inform(kLastAddress);
    if (index != -1 && lstUrls.ListCount() >= 2) {
        lstUrls.RemoveItem(static_cast<std::size_t>(index));
        // The next entry takes its place, so that several can be deleted one after the other.
        lstUrls.ListIndex = std::min(index, static_cast<std::int32_t>(lstUrls.ListCount()) - 1);
    }
    RefreshButtons();
}

void frmTessaGroup::cmdOK_Click() {
    // Deliberate: counted from 0 here, from 1 when the open tabs are saved; readers take the keys in any case.
    std::vector<TessaGroups::NumberedAddress> addresses;
    for (const Text& address : lstUrls.Rows()) addresses.push_back({addresses.size(), address});
    Unwritten = TessaGroups::Write(m_fileName, addresses, Plan()) == Outcome::Failed;
    Form.Visible = false;
}

void frmTessaGroup::cmdCancel_Click() { Form.Visible = false; }

} // namespace tessa
