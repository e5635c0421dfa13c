#pragma once
#include "base/Signal.h"
#include "downloads/Downloads.h"
#include "forms/Controls.h"
#include "forms/ListModel.h"
#include "platform/WallClock.h"

#include <vector>

namespace tessa {

/// A line of the list of downloads.
struct DownloadLine {
    std::int32_t Id = 0;
    Text Name;
    Text Standing;    ///< how far it is, how fast, or why it broke off
    Text Place;       ///< of one that is done: when, and in which folder
    int Percent = -1; ///< 0 to 100 of one that is under way; below 0 for none, above for one whose size nobody knows
    bool operator==(const DownloadLine&) const = default;
};

/// The panel of downloads, as data.
class frmDownloads {
public:
    static constexpr int kUnknownPercent = 101;

    /// The list outlives the form.
    frmDownloads(Downloads& downloads, const WallClock& clock);
    frmDownloads(const frmDownloads&) = delete;
    frmDownloads& operator=(const frmDownloads&) = delete;

    FormState Form;
    Text Caption = u"Downloads";
    ListModel<DownloadLine, &DownloadLine::Id> lstDownloads; ///< newest first
    Button cmdOpen{u"&Open"};
    Button cmdShowInFolder{u"Show in &Folder"};
    Button cmdPause{u"&Pause"}; ///< says "Resume" for one that is paused or broke off
    Button cmdRetry{u"&Again"};
    Button cmdCancel{u"&Cancel"};
    Button cmdRemove{u"Re&move"};
    Button cmdClear{u"C&lear List"};
    Label lblNone{u""};

    /// The list has changed: has `Show` run soon.
    void Touch();
    /// Shows how the downloads stand now.
    void Show();
    /// Return, or a double click, on the selected download: opens it, or goes on with it.
    void lstDownloads_DblClick();
    /// The Delete key: cancels the selected download, or takes it off the list.
    void lstDownloads_Delete();

    /// Has `Show` called in a part of a second.
    Signal<void()> Schedule;
    /// The panel was shown or hidden.
    Signal<void(bool)> Shown;

private:
    /// The id of the selected download; 0 for none.
    [[nodiscard]] std::int32_t Selected() const;
    void ShowButtons();
    void SelectNew();
    [[nodiscard]] DownloadLine LineOf(const Download& download, std::int64_t now) const;

    Downloads& m_downloads;
    const WallClock& m_clock;
    std::int32_t m_newest = 0; ///< the highest id that was shown; later ones are new
};

} // namespace tessa
