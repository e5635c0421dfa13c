#pragma once
#include "base/Signal.h"
#include "base/WriteTrouble.h"
#include "downloads/Download.h"

#include <deque>
#include <memory>
#include <optional>

namespace tessa {

/// The files that pages or the user had saved, the newest first. A download has a file of its own in the folder for
/// downloads; none is ever overwritten. The list outlives a run; what was running then has broken off.
/// Calls with an id that is none do nothing. Owned by the main window.
class Downloads {
public:
    /// Finished ones beyond that are forgotten, the oldest first; their files stay.
    static constexpr std::size_t kMost = 200;

    /// `listFile` is where the list is kept; empty for nowhere. The desktop outlives the list.
    Downloads(DownloadDesktop& desktop, Text listFile);
    Downloads(const Downloads&) = delete;
    Downloads& operator=(const Downloads&) = delete;

    /// Reads the list of earlier runs.
    void Load();

    struct Request {
        Text Address{};
        Text SuggestedName{};
        Text Path{};             ///< where the user wants it; empty for a name of its own in the folder
        bool Overwrites = false; ///< the user has agreed to replace what is there
        std::int64_t Total = -1;
        std::int32_t Again = 0; ///< the download that is fetched anew; 0 for a new one
        Remembered Kept = Remembered::Yes;
    };
    /// A download begins: the one that stands for it, with the path that it is to be written to.
    const Download& Begin(const Request& request, std::shared_ptr<DownloadTransfer> transfer);
    /// The engine goes on by itself with one that broke off, in another transfer.
    void Continue(std::int32_t id, std::shared_ptr<DownloadTransfer> transfer);
    void OnReport(std::int32_t id, const DownloadReport& report);

    void Pause(std::int32_t id);
    /// Goes on with a paused or broken one; fetches it anew when it cannot go on where it was.
    void Resume(std::int32_t id);
    void Cancel(std::int32_t id);
    /// Fetches one anew that broke off or was cancelled.
    void Retry(std::int32_t id);
    /// Opens the file with the desktop's program for it.
    void Open(std::int32_t id);
    void ShowInFolder(std::int32_t id);
    /// Takes one that is over off the list; its file stays.
    void Remove(std::int32_t id);
    /// Takes all that are over off the list.
    void Clear();
    /// Ends all that are running, at the end of the program. They have broken off then.
    void End();
    /// Writes the list again when the last write failed.
    void WriteAgain();

    [[nodiscard]] const std::deque<Download>& All() const { return m_all; }
    [[nodiscard]] const Download* Find(std::int32_t id) const;
    [[nodiscard]] std::size_t CountActive() const;
    /// The clock of the rates, in milliseconds.
    [[nodiscard]] std::int64_t Now() const { return m_desktop.Now(); }

    /// Something about the list has changed, or how far one is.
    Signal<void()> Changed;
    /// A download has begun, is done or has broken off: a sentence for the user.
    Signal<void(TextView)> Say;
    /// The list cannot be written: a sentence for the user.
    Signal<void(TextView)> Complain;
    /// Has `WriteAgain` called in a while.
    Signal<void()> TryAgain;

private:
    [[nodiscard]] Download* Look(std::int32_t id);
    [[nodiscard]] Text FreePath(const Request& request) const;
    [[nodiscard]] bool Taken(TextView path) const;
    void Forget();
    void Update();
    void Write();

    DownloadDesktop& m_desktop;
    Text m_listFile;
    WriteTrouble m_trouble{u"The list of downloads could not be saved."};
    std::deque<Download> m_all; ///< the newest first
    std::int32_t m_nextId = 1;
    bool m_ended = false;
};

} // namespace tessa
