#pragma once
#include "base/Text.h"

#include <chrono>
#include <optional>
#include <string_view>

namespace tessa {

/// How old the page engine's security fixes are. The engine names the release of Chromium whose fixes it has.
namespace EngineAge {

/// The day of a version's release, as in "108.0.5359.94"; nothing for what is no version. Versions before the table
/// count as its first. Versions after it count as one every two weeks.
[[nodiscard]] std::optional<std::chrono::sys_days> ReleaseDay(std::string_view version);

/// What to tell the user on that day; empty unless the version was released more than a year before.
[[nodiscard]] Text Notice(std::string_view version, std::chrono::sys_days today);

} // namespace EngineAge

} // namespace tessa
