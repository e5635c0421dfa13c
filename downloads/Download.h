#pragma once
#include "downloads/TransferRate.h"
#include "platform/Downloads.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace tessa {

/// Whether something may be written to disk about it.
enum class Remembered : bool { No = false, Yes = true };

/// A file that is being fetched, or was.
struct Download {
    std::int32_t Id = 0;
    Text Address;
    Text Path; ///< where the file lies, or will
    DownloadReport Report;
    TransferRate Rate;
    Remembered Kept = Remembered::Yes;
    std::int64_t Ended = 0;                     ///< when it was done, in seconds since 1970; 0 when nobody knows
    std::shared_ptr<DownloadTransfer> Transfer; ///< nothing for one of an earlier run

    [[nodiscard]] bool Active() const {
        return Report.State == DownloadState::Running || Report.State == DownloadState::Paused;
    }
    [[nodiscard]] TextView Name() const { return TextView(Path).substr(Path.rfind(u'/') + 1); }
    [[nodiscard]] TextView Folder() const {
        return TextView(Path).substr(0, std::max<std::size_t>(Path.rfind(u'/'), 1));
    }
    /// Seconds until it is done, as it stands at that time; nothing when nobody can tell.
    [[nodiscard]] std::optional<std::int64_t> SecondsLeft(std::int64_t now) const;
};

} // namespace tessa
