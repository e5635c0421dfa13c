#include "groups/frmGroupCheck.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace tessa {

namespace {

frmGroupCheck::Groups FilesOf(const std::vector<Text>& paths) {
    frmGroupCheck::Groups groups;
    for (const Text& path : paths) groups.push_back(MendedFile(path));
    return groups;
}

std::vector<CheckedLine> LinesOf(const frmGroupCheck::Groups& groups) {
    std::vector<CheckedLine> lines;
    for (const auto& group : groups) {
        for (Text& address : group->Addresses()) lines.push_back({group->File(), {.address = std::move(address)}});
    }
    return lines;
}

CheckedLine MendedLine(const CheckedLine& line) {
    return {line.File, {.address = line.Health.moved, .health = Health::Fine, .moved{}, .status = 200}};
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
    : frmGroupCheck(probe, FilesOf(files)) {}

frmGroupCheck::frmGroupCheck(AddressProbe& probe, Groups groups)
    : m_groups(std::move(groups)), m_places(LinesOf(m_groups)), m_check(probe, AddressesOf(m_places)) {
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

MendedGroup& frmGroupCheck::GroupOf(const Text& file) const {
    return **std::ranges::find(m_groups, file, [](const auto& group) -> const Text& { return group->File(); });
}

// Each group is written once. One that cannot be written stays as it was, with its lines.
void frmGroupCheck::Mend(bool moved) {
    std::map<Text, std::map<Text, Text>> changes;
    const auto isMeant = [moved](const CheckedLine& each) {
        return each.Ticked && (each.Health.health == Health::Moved) == moved;
    };
    for (const CheckedLine& each : lstLines.Rows()) {
        if (isMeant(each)) changes[each.File].emplace(each.Health.address, moved ? each.Health.moved : Text());
    }
    Done done{{}, lstLines.Rows()};
    std::set<Text> mended;
    for (const auto& [file, change] : changes) {
        auto takeBack = GroupOf(file).Change(change);
        if (!takeBack) continue;
        done.takeBacks.push_back(std::move(takeBack));
        mended.insert(file);
    }
    if (!mended.empty()) m_done.push_back(std::move(done));
    std::vector<CheckedLine> lines;
    for (const CheckedLine& each : lstLines.Rows()) {
        const bool changed = isMeant(each) && mended.contains(each.File);
        if (!changed || moved) lines.push_back(changed ? MendedLine(each) : each);
    }
    lstLines.ListIndex = -1;
    lstLines.Show(std::move(lines));
    const TextView words = moved ? u"Replaced." : u"Removed.";
    Tell(mended.size() == changes.size() ? words : TextView(u"Not every TessaGroup could be written."));
}

void frmGroupCheck::cmdUndo_Click() {
    if (m_done.empty()) return;
    Done last = std::move(m_done.back());
    m_done.pop_back();
    bool whole = true;
    for (const auto& takeBack : last.takeBacks) whole &= takeBack() == Outcome::Done;
    lstLines.ListIndex = -1;
    if (whole) lstLines.Show(std::move(last.lines));
    Tell(whole ? u"Taken back." : u"Not everything could be taken back: a file has been changed meanwhile.");
}

void frmGroupCheck::cmdArchive_Click() {
    if (cmdArchive.Enabled()) OpenArchive(lstLines.FindSelected()->Health.address);
}

} // namespace tessa
