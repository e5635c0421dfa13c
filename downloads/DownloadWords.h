#pragma once
#include "downloads/Downloads.h"
#include "platform/Dialogs.h"

namespace tessa {

/// What is told about downloads.
namespace DownloadWords {

/// Stands between the time at which a download was done and its folder.
inline constexpr TextView kInFolder = u", in ";

/// An amount of bytes, as in "4.2 MB".
[[nodiscard]] Text Size(std::int64_t bytes);
/// A time to come, as in "About 3 minutes left".
[[nodiscard]] Text TimeLeft(std::int64_t seconds);
/// Why a download broke off, as a sentence. Nothing for no problem.
[[nodiscard]] Text Why(DownloadProblem problem);
/// How a download stands at that time, by the clock of its rate.
[[nodiscard]] Text Standing(const Download& download, std::int64_t now);
/// When a download was done, by that text of it, and the folder where it lies. Nothing before that.
[[nodiscard]] Text Place(const Download& download, TextView time);
/// How far all that is under way is, in a few words, as in "Saving 42 %". Nothing when nothing is.
[[nodiscard]] Text Progress(const Downloads& downloads);
/// The question before the program ends while so many downloads run.
[[nodiscard]] OwnQuestion ExitQuestion(std::size_t running);

} // namespace DownloadWords

} // namespace tessa
