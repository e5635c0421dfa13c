#pragma once
#include "forms/Controls.h"
#include "forms/ListModel.h"
#include "groups/GroupMerge.h"

#include <vector>

namespace tessa {

/// An address of either group.
struct ComparedLine {
    GroupMerge::Compared What;
    bool Ticked = false; ///< to be added where it is missing, to be removed where it stands again

    /// Whether merging can change anything about it.
    [[nodiscard]] bool Changes() const;

    bool operator==(const ComparedLine&) const = default;
};

/// Another group held against the one that is being edited, as data. Made afresh for every show. It changes nothing
/// itself: `Merged` says what became of the addresses.
class frmGroupCompare {
public:
    /// `name` is what the other group is called, `there` what it holds.
    frmGroupCompare(Text name, std::vector<Text> here, const std::vector<Text>& there);
    frmGroupCompare(const frmGroupCompare&) = delete;
    frmGroupCompare& operator=(const frmGroupCompare&) = delete;

    FormState Form;
    Text Caption = u"Compare TessaGroups";
    Label lblSummary{u""};
    ListModel<ComparedLine> lstLines;
    Button cmdMerge{u"Merge"};
    Button cmdCancel{u"Cancel"};

    /// The user has ticked a line, or taken that back.
    void Tick(std::size_t line, bool ticked);
    /// Where the address stands, in words.
    [[nodiscard]] Text WordsOf(const ComparedLine& line) const;

    /// The addresses after "Merge": those that were removed are gone, those that were added come last. Without it they
    /// are as they were.
    std::vector<Text> Merged;

private:
    void RefreshButtons();
    void cmdMerge_Click();

    Text m_name;
};

} // namespace tessa
