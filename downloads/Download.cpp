#include "downloads/Download.h"

namespace tessa {

std::optional<std::int64_t> Download::SecondsLeft(std::int64_t now) const {
    const auto rate = Rate.PerSecond(now);
    if (Report.State != DownloadState::Running || Report.Total < 0 || !rate || *rate <= 0) return std::nullopt;
    return (std::max<std::int64_t>(Report.Total - Report.Received, 0) + *rate - 1) / *rate;
}

} // namespace tessa
