#pragma once
#include "forms/Controls.h"
#include "forms/ListModel.h"
#include "groups/GroupCheck.h"

#include <memory>
#include <utility>
#include <vector>

namespace tessa {

/// An address of a group, and how it stands with it.
struct CheckedLine {
    Text File; ///< the group's
    HealthLine Health;
    bool Ticked = false; ///< to be replaced where it has moved, else to be removed

    /// Whether it can be ticked: it has moved, or there is something wrong with it.
    [[nodiscard]] bool Mends() const;
    /// Whether an older copy may help.
    [[nodiscard]] bool Dead() const;

    bool operator==(const CheckedLine&) const = default;
};

/// The list of what has become of the addresses of one or several groups, as data. Made afresh for every show, it asks
/// at once. Nothing is changed but by its buttons.
class frmGroupCheck {
public:
    using Groups = std::vector<std::shared_ptr<MendedGroup>>;

    /// The probe outlives the form.
    frmGroupCheck(AddressProbe& probe, Groups groups);
    /// Of the groups of these files.
    frmGroupCheck(AddressProbe& probe, const std::vector<Text>& files);
    frmGroupCheck(const frmGroupCheck&) = delete;
    frmGroupCheck& operator=(const frmGroupCheck&) = delete;

    FormState Form;
    Text Caption = u"Check TessaGroup";
    Label lblProgress{u""};
    ListModel<CheckedLine> lstLines;
    Button cmdStop{u"Stop"};
    Button cmdReplace{u"Replace"};
    Button cmdRemove{u"Remove"};
    Button cmdUndo{u"Undo"};
    Button cmdArchive{u"Look for an Archived Copy"};
    Button cmdClose{u"Close"};

    /// The user has ticked a line, or taken that back.
    void Tick(std::size_t line, bool ticked);
    /// An older copy of what was at that address is wanted.
    Signal<void(const Text& address)> OpenArchive;

private:
    /// What an action has changed, to be taken back.
    struct Done {
        std::vector<MendedGroup::TakeBack> takeBacks;
        std::vector<CheckedLine> lines;
    };

    void OnProgress();
    void Tell(TextView words);
    void RefreshButtons();
    void cmdReplace_Click() { Mend(true); }
    void cmdRemove_Click() { Mend(false); }
    void cmdUndo_Click();
    void cmdArchive_Click();
    void Mend(bool moved);
    [[nodiscard]] bool Any(bool moved) const;

    [[nodiscard]] MendedGroup& GroupOf(const Text& file) const;

    Groups m_groups;
    std::vector<CheckedLine> m_places; ///< every address of every group, in order
    GroupCheck m_check;
    std::vector<Done> m_done;
};

} // namespace tessa
