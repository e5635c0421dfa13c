#pragma once
#include "base/Signal.h"
#include "base/WriteTrouble.h"
#include "forms/TabStrip.h"
#include "groups/GroupOpening.h"
#include "platform/SessionFiles.h"
#include "platform/WallClock.h"
#include "sessions/CameBack.h"
#include "sessions/Session.h"
#include "sessions/SessionOffer.h"
#include "tabs/TabSet.h"
#include "tiles/Tiles.h"

namespace tessa {

/// Writes down which pages are open whenever that changes, so that a session that ends badly can be brought back.
/// Owned by the main window.
class SessionJournal {
public:
    /// What is written down, and opened again; all of it outlives this object.
    struct Parts {
        TabSet& tabs;
        TabStrip& pcPage;
        ViewArray& Browser;
        Tiles& tiles;
        GroupOpening& groups;
    };
    /// These outlive it too.
    SessionJournal(SessionFiles& files, const WallClock& clock, Parts parts);
    SessionJournal(const SessionJournal&) = delete;
    SessionJournal& operator=(const SessionJournal&) = delete;

    /// Something has changed: has `Write` called soon, once for all changes until then.
    void Touch();
    /// Writes the open pages down, when they are others than were last written. A write that fails is tried again.
    void Write();
    /// Writes them down for the last time. The session has ended well; from now on nothing is written.
    void End();

    /// The newest session that ended badly and that the user has not settled; nothing when there is none.
    [[nodiscard]] std::optional<std::pair<Text, Session>> ToOffer() const;
    /// Offers that one, or takes the offer back when there is none.
    void OfferBy(SessionOffer& offer) const;
    /// All sessions that are kept, newest first, by their ids.
    [[nodiscard]] std::vector<std::pair<Text, Session>> Earlier() const;
    /// Opens all pages of a session in new tabs, the one that was in front in front, and settles it. They take the
    /// place of the pages that came back by themselves and that nobody has touched since.
    void Reopen(TextView Id);
    /// Opens a session's pages, see `Open`. The one that they all are of is settled once they have been written down.
    void OpenAndSettle(const Session& pages, TextView Id);
    /// Opens a session's pages in new tabs, side by side as they were, and the one in front that was; else the last.
    void Open(const Session& pages);
    /// The user need not be asked about this session again. It is still kept.
    void Settle(TextView Id);
    /// Forgets a session.
    void Forget(TextView Id);

    /// The pages that this start has opened by itself.
    tessa::CameBack CameBack;
    /// Has `Write` called in a part of a second. Without a listener nothing is written meanwhile.
    Signal<void()> Schedule;
    /// Tells the user that pages could not be written down.
    Signal<void(TextView)> Say;

private:
    [[nodiscard]] Session Snapshot() const;
    void SettleOnceWritten(TextView Id);
    void GiveWay(const std::vector<std::int32_t>& untouched);
    [[nodiscard]] bool IsPinnedElsewhere(std::int32_t index, const Session& session) const;
    void Keep(Session session);
    void OnWritten(Outcome outcome, const std::vector<Text>& unsettled);
    void OnSettled(Outcome outcome, const Text& id);

    SessionFiles& m_files;
    const WallClock& m_clock;
    TabSet& m_tabs;
    TabStrip& m_pcPage;
    ViewArray& m_browser;
    Tiles& m_tiles;
    GroupOpening& m_groups;
    std::optional<Session> m_written{Session()}; ///< nothing when the last write failed
    std::vector<Text> m_unsettled;               ///< to be settled once the open pages are written down
    std::vector<Text> m_answered;                ///< not to be offered again, whenever that is on disk
    WriteTrouble m_trouble{u"The open pages could not be written down: a crash would lose them."};
    WriteTrouble m_settleTrouble{u"An earlier session could not be changed and may be offered again."};
    bool m_touched = false;
    bool m_ended = false;
};

} // namespace tessa
