#pragma once
#include "forms/Controls.h"
#include "forms/ListModel.h"
#include "platform/Dialogs.h"
#include "sessions/SessionJournal.h"

namespace tessa {

/// A line of the list of sessions.
struct SessionLine {
    Text Id;
    Text When;  ///< when the session was last written down, as the user reads it
    Text Pages; ///< how many pages it had, and whether it ended badly
    bool operator==(const SessionLine&) const = default;
};

/// A line of the list of a session's pages, with a box to tick.
struct SessionPageLine {
    std::size_t Number = 0; ///< in its session, from 0
    Text Title;             ///< the address where the page had none
    Text Address;
    bool Front = false; ///< it was the page in front
    bool Ticked = true;
    bool operator==(const SessionPageLine&) const = default;
};

/// The list of earlier sessions, as data. Opens all or some of their pages again, saves them as a TessaGroup or forgets
/// them. Made afresh for every show.
class frmSessions {
public:
    /// What the form needs besides the journal. The references outlive it.
    struct Outside {
        FileDialogs& files;
        MessageBoxes& messages;
        Text groupFolder; ///< with the separator at the end
        const WallClock& clock;
    };

    /// The journal outlives the form.
    frmSessions(SessionJournal& sessions, Outside outside);
    frmSessions(const frmSessions&) = delete;
    frmSessions& operator=(const frmSessions&) = delete;

    FormState Form;
    Text Caption = u"Earlier Sessions";
    Label lblSessions{u"&Sessions"};
    Label lblPages{u"&Pages"};
    CheckBox chkAll{u"&All pages"};
    Label lblMessage{u""}; ///< what became of a TessaGroup that was to be saved
    Button cmdOpen{u"&Open"};
    Button cmdSave{u"Save as &TessaGroup..."};
    Button cmdForget{u"&Forget Session"};
    Button cmdClose{u"Close"};
    ListModel<SessionLine, &SessionLine::Id> lstSessions;          ///< newest first
    ListModel<SessionPageLine, &SessionPageLine::Number> lstPages; ///< the pages of the selected session

    /// The user ticks a page, from 0, or takes the tick away.
    void lstPages_ItemCheck(std::size_t index, bool ticked);
    /// The user wants that one page: it opens, and the form hides.
    void lstPages_DblClick(std::size_t index);

    /// A TessaGroup has been saved.
    bool SavedGroup = false;

private:
    /// A session and its id; nothing when none is selected.
    using EarlierSession = std::pair<Text, Session>;
    [[nodiscard]] const EarlierSession* FindSelected() const;
    void LoadSessions();
    void ShowPages();
    void ShowTicks();
    void chkAll_Click();
    void cmdOpen_Click();
    void cmdSave_Click();
    void cmdForget_Click();
    void Open(const std::vector<std::size_t>& indexes);
    [[nodiscard]] SessionLine LineOf(const EarlierSession& earlier) const;
    [[nodiscard]] std::vector<std::size_t> TickedPages() const;

    SessionJournal& m_journal;
    Outside m_outside;
    std::vector<EarlierSession> m_sessions;
    bool m_showingTicks = false;
};

} // namespace tessa
