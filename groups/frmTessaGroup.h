#pragma once
#include "base/Signal.h"
#include "base/Units.h"
#include "forms/Choice.h"
#include "forms/Controls.h"
#include "forms/FormHost.h"
#include "forms/ListBox.h"
#include "groups/GroupPlan.h"
#include "platform/Dialogs.h"

#include <functional>

namespace tessa {

class AddressProbe;

/// The editor of one group file, as data: reorders, inserts, changes and deletes addresses, says how they open, and
/// writes it all with OK. Made afresh for every show.
class frmTessaGroup {
public:
    static constexpr Twips kCollapsed{4110};
    static constexpr Twips kExpanded{4815};

    /// What the editor can do besides; a button whose part is missing is disabled. All outlive the form.
    struct Outside {
        FileDialogs* files = nullptr; ///< asks for the group to compare with
        Text groupFolder{};           ///< where it begins to ask
        AddressProbe* probe = nullptr;
        std::function<Text(TextView address)> titleOf{}; ///< the title of the page at an address, empty for none
    };

    /// Both outlive the form.
    frmTessaGroup(MessageBoxes& messages, FormHost& forms, Outside outside);
    frmTessaGroup(MessageBoxes& messages, FormHost& forms) : frmTessaGroup(messages, forms, Outside()) {}
    frmTessaGroup(const frmTessaGroup&) = delete;
    frmTessaGroup& operator=(const frmTessaGroup&) = delete;

    /// Fills the form from a group file (its full path), shows it, and returns when it is hidden.
    void EditTessaGroup(TextView sFileName);

    FormState Form;
    /// Low while browsing, with only the list; high while an address is being entered.
    Property<Twips> Height{kCollapsed};
    Text Caption = u"Organize TessaGroup";
    Label Label1{u"TessaGroup:"};
    Label lblTessaGroupName{u""};
    ListBox lstUrls;
    Button cmdUp{u"Move Up"};
    Button cmdDown{u"Move Down"};
    Button cmdInsert{u"Insert"};
    Button cmdUpdate{u"Update"};
    Button cmdDelete{u"Delete"};
    Choice cboColour;
    CheckBox chkBehind{u"Open behind"};
    CheckBox chkCloseOthers{u"Close other tabs"};
    CheckBox chkKeepPanes{u"Keep the panes"};
    Button cmdCheck{u"Check"};
    Button cmdCompare{u"Compare..."};
    Button cmdOK{u"OK"};
    Button cmdCancel{u"Cancel"};
    Frame Frame1;
    Label Label2{u"Url:"};
    TextBox txtUrl;
    Button cmdUrlInsert{u"Insert"};
    Button Cancel{u"Cancel"};

    /// Takes the entry at `from` to the place `to`, both from 0, and selects it. Does nothing without such an entry.
    void MoveEntry(std::size_t from, std::size_t to);

    /// How the entry at that place opens, from 0.
    [[nodiscard]] PagePlan PlanAt(std::size_t place) const;
    /// The user wants it to open so, and with it every entry of the same address.
    void SetPlan(std::size_t place, const PagePlan& plan);

    /// OK was pressed and the file could not be written; it is as it was.
    bool Unwritten = false;

    /// The title of the page at an address, empty where it is not known.
    [[nodiscard]] Text TitleOf(TextView address) const;

    /// An older copy of what was at that address is wanted.
    Signal<void(const Text& address)> OpenArchive;

private:
    void cmdUp_Click();
    void cmdDown_Click();
    void cmdInsert_Click();
    void cmdUpdate_Click();
    void cmdUrlInsert_Click();
    void Cancel_Click();
    void cmdDelete_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void lstUrls_DblClick();
    void cmdCheck_Click();
    void cmdCompare_Click();

    class EditedGroup;
    void LoadPlan();
    [[nodiscard]] GroupPlan Plan() const;
    void ShowAddresses(const std::vector<Text>& addresses);
    void RefreshButtons();
    void Enter(TextView caption, Text url);
    void InsertLines(TextView text);
    void UpdateSelected(TextView text);
    void NoteUpdated(const Text& before, const Text& line);

    MessageBoxes& m_messages;
    FormHost& m_forms;
    Outside m_outside;
    Text m_fileName;
    std::vector<Text> m_opened; ///< the addresses as they opened before they were edited
    GroupPlan m_plan;           ///< also of addresses that were deleted, and may come back
};

} // namespace tessa
