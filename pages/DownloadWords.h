#pragma once
#include "common/platform/Dialogs.h"
#include "pages/Downloads.h"

/// What is told about downloads.
namespace DownloadWords {

/// An amount of bytes, as in "4.2 MB".
[[nodiscard]] Text Size(std::int64_t bytes);
/// A time to come, as in "about 3 minutes left".
[[nodiscard]] Text TimeLeft(std::int64_t seconds);
/// Why a download broke off, as a sentence. Nothing for no problem.
[[nodiscard]] Text Why(DownloadProblem problem);
/// How a download stands at that time, by the clock of its rate.
[[nodiscard]] Text Standing(const Download& download, std::int64_t now);
/// The question before the program ends while so many downloads run.
[[nodiscard]] OwnQuestion ExitQuestion(std::size_t running);

} // namespace DownloadWords
