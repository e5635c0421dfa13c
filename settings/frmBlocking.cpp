#include "settings/frmBlocking.h"

#include "base/Address.h"
#include "blocking/ListCatalogue.h"
#include "blocking/RuleLine.h"

#include <algorithm>

namespace tessa {

namespace {

// The first of the lines that are wrong are told; a list pasted whole would be told for ever.
constexpr std::size_t kToldBadLines = 3;

std::vector<Text> LinesOf(TextView text) {
    std::vector<Text> lines;
    while (!text.empty()) {
        const TextView line = text.substr(0, text.find(u'\n'));
        lines.emplace_back(Address::Trimmed(line));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
    }
    return lines;
}

Text JoinedLines(const std::vector<Text>& lines) {
    Text text;
    for (const Text& each : lines) text += each + u"\n";
    return text;
}

Text CaptionOf(const Text& chosen) {
    const KnownList* known = ListCatalogue::Find(chosen);
    if (!known || known->Languages.empty()) return chosen;
    return chosen + u" (" + Text(known->Languages) + u")";
}

Text DoesOf(const Text& chosen) {
    const KnownList* known = ListCatalogue::Find(chosen);
    return known ? Text(known->Does) : Text(u"A list of your own. Untick it to remove it.");
}

} // namespace

BlockingListLine::BlockingListLine(Text chosen, Text does, Text state)
    : Chosen(std::move(chosen)), chkList(CaptionOf(Chosen)), lblDoes(std::move(does)), lblState(std::move(state)) {}

frmBlocking::frmBlocking(SettingsStorageFactory& settings, BlockingOutside* outside, ChooseFile chooseFile)
    : m_settings(settings), m_outside(outside ? *outside : m_nothing), m_chooseFile(std::move(chooseFile)) {
    cmdAddList.Click.ConnectForLife([this] { cmdAddList_Click(); });
    cmdAddFile.Click.ConnectForLife([this] { cmdAddFile_Click(); });
    cmdUpdate.Click.ConnectForLife([this] { cmdUpdate_Click(); });
    txtOwnRules.Value.Change.ConnectForLife([this] { txtOwnRules_Change(); });
    Form_Load();
}

void frmBlocking::Form_Load() {
    m_before = BlockingSettings(m_settings).Get();
    const std::vector<Text> chosen =
        m_before.listsChosen ? m_before.lists : ListCatalogue::ByDesign(m_outside.Languages());
    chkOn.Tick(m_before.on);
    for (const KnownList& each : ListCatalogue::All())
        AddLine(Text(each.Name), std::ranges::count(chosen, each.Name) > 0);
    for (const Text& each : chosen)
        if (!ListCatalogue::Find(each)) AddLine(each, true);
    txtOffSites.Value = JoinedLines(m_before.offSites);
    m_rulesBefore = m_outside.OwnRules();
    txtOwnRules.Value = m_rulesBefore;
    cmdAddFile.Enabled = static_cast<bool>(m_chooseFile);
    cmdUpdate.Enabled = m_before.on;
}

void frmBlocking::AddLine(const Text& chosen, bool ticked) {
    Lists.push_back(std::make_unique<BlockingListLine>(chosen, DoesOf(chosen), m_outside.StateOf(chosen)));
    Lists.back()->chkList.Tick(ticked);
    Added(*Lists.back());
}

void frmBlocking::cmdAddList_Click() {
    const Text typed(Address::Trimmed(txtOwnList.Value()));
    const bool good = ListCatalogue::CanBeList(typed);
    lblOwnListBad.Caption =
        good ? Text() : Text(u"A list is an address that begins with https://, or the full path of a file.");
    if (!good) return txtOwnList.SetFocus();
    const auto same = std::ranges::find(Lists, typed, [](const auto& each) { return each->Chosen; });
    if (same != Lists.end())
        (*same)->chkList.Tick(true);
    else
        AddLine(typed, true);
    txtOwnList.Value = Text();
    chkOn.Tick(true);
}

void frmBlocking::cmdAddFile_Click() {
    const Text file = m_chooseFile ? m_chooseFile() : Text();
    if (file.empty()) return;
    txtOwnList.Value = file;
    cmdAddList_Click();
}

void frmBlocking::cmdUpdate_Click() {
    lblUpdated.Caption = Text(u"Looking for newer lists...");
    m_outside.Update([this, alive = std::weak_ptr(m_alive)](const Text& words) {
        if (!alive.expired()) lblUpdated.Caption = words;
    });
}

void frmBlocking::txtOwnRules_Change() {
    m_badLines.clear();
    Text words;
    const std::vector<Text> lines = LinesOf(txtOwnRules.Value());
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const RuleLine read = ReadRuleLine(ToUtf8(lines[at]));
        if (read.Kind != LineKind::Unknown) continue;
        m_badLines.push_back(at);
        if (m_badLines.size() > kToldBadLines) continue;
        words += (words.empty() ? u"Line " : u"\nLine ") + Decimal(static_cast<std::int64_t>(at) + 1) + u": " +
                 Text(WordsOf(read.Trouble));
    }
    if (m_badLines.size() > kToldBadLines)
        words += u"\nand " + Decimal(static_cast<std::int64_t>(m_badLines.size() - kToldBadLines)) + u" more";
    lblOwnRulesBad.Caption = words;
}

std::vector<Text> frmBlocking::Ticked() const {
    std::vector<Text> chosen;
    for (const auto& each : Lists)
        if (each->chkList.Ticked()) chosen.push_back(each->Chosen);
    return chosen;
}

void frmBlocking::Keep() {
    BlockingValues values = m_before;
    values.on = chkOn.Ticked();
    // Whoever has seen this page need not be asked.
    values.asked = values.asked || values.on;
    values.lists = Ticked();
    values.listsChosen = true;
    values.offSites.clear();
    for (const Text& each : LinesOf(txtOffSites.Value()))
        if (const Text host = OffSiteOf(each); !host.empty()) values.offSites.push_back(host);
    BlockingSettings(m_settings).Set(values);
    if (txtOwnRules.Value() != m_rulesBefore) m_outside.KeepOwnRules(txtOwnRules.Value());
}

} // namespace tessa
