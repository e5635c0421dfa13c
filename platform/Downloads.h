#pragma once
#include "base/ResumeNext.h"
#include "base/Text.h"

#include <cstdint>

namespace tessa {

enum class DownloadState { Running, Paused, Broken, Done, Cancelled };

/// Why a download broke off.
enum class DownloadProblem { None, Connection, DiskFull, NoAccess, Server, Gone, Other };

/// How far a download is.
struct DownloadReport {
    DownloadState State = DownloadState::Running;
    DownloadProblem Problem = DownloadProblem::None;
    std::int64_t Received = 0; ///< bytes
    std::int64_t Total = -1;   ///< bytes; below 0 when nobody knows
};

/// One download as the engine does it. Owned by the list of downloads, which it outlives no further than one call.
class DownloadTransfer {
public:
    virtual ~DownloadTransfer() = default;
    virtual Outcome Pause() = 0;
    /// Goes on with a download that was paused or broke off, from where it stopped.
    virtual Outcome Resume() = 0;
    /// Ends it and removes what was written.
    virtual Outcome Cancel() = 0;
};

/// What the list of downloads needs of the world outside. Owned by the program's entry.
class DownloadDesktop {
public:
    virtual ~DownloadDesktop() = default;
    /// The folder where downloads go, without a separator at the end. It exists, if it can be made.
    [[nodiscard]] virtual Text Folder() = 0;
    /// Opens a file with the desktop's program for it.
    virtual Outcome Open(TextView path) = 0;
    virtual Outcome ShowInFolder(TextView path) = 0;
    /// Fetches an address anew; the engine reports it to the list as the download `id`.
    virtual Outcome Fetch(std::int32_t id, TextView address) = 0;
    /// A steady clock, in milliseconds.
    [[nodiscard]] virtual std::int64_t Now() = 0;
    /// The time of day, in seconds since 1970.
    [[nodiscard]] virtual std::int64_t Time() = 0;
};

} // namespace tessa
