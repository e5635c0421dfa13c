#include "groups/frmGroupCheck.h"

#include "groups/TessaGroups.h"

#include <algorithm>
#include <map>

namespace tessa {

namespace {

std::vector<CheckedLine> LinesOf(const std::vector<Text>& files) {
    std::vector<CheckedLine> lines;
    for (const Text& file : files) {
        for (const auto& address : TessaGroups::Load(file)) lines.push_back({file, {.address = address.Key}});
    }
    return lines;
}

std::vector<Text> AddressesOf(const std::vector<CheckedLine>& lines) {
    std::vector<Text> addresses;
    for (const CheckedLine& each : lines) addresses.push_back(each.Health.address);
    return addresses;
}

Text Counted(std::size_t count, TextView one, TextView several) {
    return Decimal(static_cast<std::int64_t>(count)) + u" " + Text(count == 1 ? one : several);
}

} // namespace

bool CheckedLine::Mends() const {
    return Health.health == Health::Moved || Dead() || Health.health == Health::FileGone;
}

bool CheckedLine::Dead() const {
    using enum tessa::Health;
    const auto health = Health.health;
    return health == Gone || health == Refused || health == Certificate || health == TimeOut || health == Failed;
}

frmGroupCheck::frmGroupCheck(AddressProbe& probe, const std::vector<Text>& files)
    : m_places(LinesOf(files)), m_check(probe, AddressesOf(m_places)) {
    cmdStop.Click.ConnectForLife([this] { m_check.Stop(); });
    cmdReplace.Click.ConnectForLife([this] { cmdReplace_Click(); });
    cmdRemove.Click.ConnectForLife([this] { cmdRemove_Click(); });
    cmdUndo.Click.ConnectForLife([this] { cmdUndo_Click(); });
    cmdArchive.Click.ConnectForLife([this] { cmdArchive_Click(); });
    cmdClose.Click.ConnectForLife([this] { Form.Visible = false; });
    lstLines.ListIndex.Change.ConnectForLife([this] { RefreshButtons(); });
    m_check.Progress.ConnectForLife([this] { OnProgress(); });
    m_check.Start();
    OnProgress();
}

void frmGroupCheck::OnProgress() {
    std::map<Text, HealthLine> known;
    for (HealthLine& each : m_check.Lines()) known.emplace(each.address, each);
    if (!m_check.Done()) {
        lblProgress.Caption = Decimal(static_cast<std::int64_t>(m_check.Known())) + u" of " +
                              Counted(m_check.All(), u"address", u"addresses");
        return RefreshButtons();
    }
    std::vector<CheckedLine> lines = m_places;
    for (CheckedLine& each : lines) {
        each.Health = known[each.Health.address];
        // What has a new address is as good as mended.
        each.Ticked = each.Health.health == Health::Moved;
    }
    const auto bad = static_cast<std::size_t>(std::ranges::count_if(lines, &CheckedLine::Mends));
    lstLines.Show(std::move(lines));
    Tell(bad == 0 ? Text(u"Nothing has to be mended.")
                  : Counted(bad, u"address has moved or is gone.", u"addresses have moved or are gone."));
}

void frmGroupCheck::Tell(TextView words) {
    lblProgress.Caption = Text(words);
    RefreshButtons();
}

bool frmGroupCheck::Any(bool moved) const {
    return std::ranges::any_of(lstLines.Rows(), [moved](const CheckedLine& each) {
        return each.Ticked && (each.Health.health == Health::Moved) == moved;
    });
}

void frmGroupCheck::RefreshButtons() {
    cmdStop.Enabled = !m_check.Done();
    cmdReplace.Enabled = Any(true);
    cmdRemove.Enabled = Any(false);
    cmdUndo.Enabled = !m_done.empty();
    const CheckedLine* selected = lstLines.FindSelected();
    cmdArchive.Enabled = selected && selected->Dead();
}

void frmGroupCheck::Tick(std::size_t line, bool ticked) {
    if (line >= lstLines.ListCount() || !lstLines.Rows()[line].Mends()) return;
    CheckedLine changed = lstLines.Rows()[line];
    changed.Ticked = ticked;
    lstLines.Set(line, std::move(changed));
    RefreshButtons();
}

// Each file is written once. One that cannot be written stays as it was, with its lines.
void frmGroupCheck::Mend(bool moved) {
    std::map<Text, std::map<Text, Text>> changes;
    const auto isMeant = [moved](const CheckedLine& each) {
        return each.Ticked && (each.Health.health == Health::Moved) == moved;
    };
    for (const CheckedLine& each : lstLines.Rows()) {
        if (isMeant(each)) changes[each.File].emplace(each.Health.address, moved ? each.Health.moved : Text());
    }
    Done done{{}, lstLines.Rows()};
    for (const auto& [file, change] : changes) {
        if (auto before = GroupMending::Change(file, change)) done.files.emplace_back(file, std::move(*before));
    }
    const auto isWritten = [&done](const CheckedLine& each) {
        return std::ranges::find(done.files, each.File, [](const auto& file) { return file.first; }) !=
               done.files.end();
    };
    std::vector<CheckedLine> lines;
    for (CheckedLine each : lstLines.Rows()) {
        const bool changed = isMeant(each) && isWritten(each);
        if (changed && !moved) continue;
        if (changed)
            each = {each.File, {.address = each.Health.moved, .health = Health::Fine, .moved{}, .status = 200}};
        lines.push_back(std::move(each));
    }
    const std::size_t failed = changes.size() - done.files.size();
    if (!done.files.empty()) m_done.push_back(std::move(done));
    lstLines.ListIndex = -1;
    lstLines.Show(std::move(lines));
    Tell(failed > 0 ? TextView(u"Not every TessaGroup could be written.") : moved ? u"Replaced." : u"Removed.");
}

void frmGroupCheck::cmdUndo_Click() {
    if (m_done.empty()) return;
    Done last = std::move(m_done.back());
    m_done.pop_back();
    bool whole = true;
    for (const auto& [file, before] : last.files) whole &= GroupMending::Undo(file, before) == Outcome::Done;
    lstLines.ListIndex = -1;
    if (whole) lstLines.Show(std::move(last.lines));
    Tell(whole ? u"Taken back." : u"Not everything could be taken back: a file has been changed meanwhile.");
}

void frmGroupCheck::cmdArchive_Click() {
    if (cmdArchive.Enabled() && OpenArchive) OpenArchive(lstLines.FindSelected()->Health.address);
}

} // namespace tessa
