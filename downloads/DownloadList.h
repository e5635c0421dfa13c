#pragma once
#include "downloads/Download.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// The list of downloads as the bytes of a file.
namespace DownloadList {

/// A longer file is not ours.
inline constexpr std::size_t kMostBytes = std::size_t{4} << 20;

/// Leaves out what is not to be remembered.
[[nodiscard]] std::string Bytes(const std::deque<Download>& all);
/// What the bytes hold, in the same order; lines that are damaged are left out. What was running has broken off.
[[nodiscard]] std::vector<Download> Read(std::string_view bytes);

} // namespace DownloadList

} // namespace tessa
