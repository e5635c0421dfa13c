#include "groups/frmGroupCompare.h"

#include <algorithm>
#include <utility>

namespace tessa {

using GroupMerge::Standing;

bool ComparedLine::Changes() const { return What.standing == Standing::OnlyThere || What.standing == Standing::Again; }

frmGroupCompare::frmGroupCompare(Text name, std::vector<Text> here, const std::vector<Text>& there)
    : Merged(std::move(here)), m_name(std::move(name)) {
    cmdMerge.Click.ConnectForLife([this] { cmdMerge_Click(); });
    cmdCancel.Click.ConnectForLife([this] { Form.Visible = false; });
    std::vector<ComparedLine> lines;
    // What is missing is what one has compared for; what stands twice may be meant.
    for (GroupMerge::Compared& each : GroupMerge::Compare(Merged, there)) {
        const bool missing = each.standing == Standing::OnlyThere;
        lines.push_back({std::move(each), missing});
    }
    const auto count = [&lines](Standing standing) {
        const auto found = std::ranges::count_if(
            lines, [standing](const ComparedLine& line) { return line.What.standing == standing; });
        return Decimal(static_cast<std::int64_t>(found));
    };
    lblSummary.Caption = count(Standing::OnlyThere) + u" only in " + m_name + u", " + count(Standing::OnlyHere) +
                         u" only here, " + count(Standing::Again) + u" here more than once";
    lstLines.Show(std::move(lines));
    RefreshButtons();
}

Text frmGroupCompare::WordsOf(const ComparedLine& line) const {
    switch (line.What.standing) {
    case Standing::Both:
        return u"In both";
    case Standing::Alike:
        return u"In both, there as " + line.What.other;
    case Standing::OnlyHere:
        return u"Only here";
    case Standing::OnlyThere:
        return u"Only in " + m_name + (line.Ticked ? u"; will be added" : u"");
    case Standing::Again:
        break;
    }
    const Text as = line.What.other.empty() ? Text() : u" as " + line.What.other;
    return u"Here already" + as + (line.Ticked ? u"; will be removed" : u"");
}

void frmGroupCompare::RefreshButtons() {
    cmdMerge.Enabled = std::ranges::any_of(lstLines.Rows(), &ComparedLine::Ticked);
}

void frmGroupCompare::Tick(std::size_t line, bool ticked) {
    if (line >= lstLines.ListCount() || !lstLines.Rows()[line].Changes()) return;
    ComparedLine changed = lstLines.Rows()[line];
    changed.Ticked = ticked;
    lstLines.Set(line, std::move(changed));
    RefreshButtons();
}

void frmGroupCompare::cmdMerge_Click() {
    Merged.clear();
    for (const ComparedLine& each : lstLines.Rows()) {
        const bool isHere = each.What.standing != Standing::OnlyThere;
        if (isHere != each.Ticked) Merged.push_back(each.What.address);
    }
    Form.Visible = false;
}

} // namespace tessa
