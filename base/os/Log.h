#pragma once
#include "base/os/LogFile.h"

#include <optional>
#include <source_location>

namespace tessa {

// What the program notes about itself, for a report that a person can send. It holds no addresses and no titles: what
// is noted is written in the source, and numbers. There is one log a process, as there is one standard error.

/// Words that stand in the source.
struct LogWords {
    consteval LogWords(const char* words) : Words(words) {} // NOLINT: a literal is to be enough
    const char* Words;
};

namespace Log {

/// Where the notes go from now on; nothing means nowhere. The file outlives its use.
void To(LogFile* file);

void Note(LogLevel level, LogPart part, LogWords words, std::optional<std::int64_t> number = {});
/// A step that failed, and where.
void NoteFailedStep(const std::source_location& where);
/// A place in the source by folder, file and line, as in "forms/TabStrip.cpp:63 (void Select())".
[[nodiscard]] std::string Place(const std::source_location& where);
/// Our own mistake, at this place; comes right before the end.
void NoteMistake(const std::source_location& where);

/// What a library has said. Of its words only those are kept that can be no address, name or title.
void NoteForeign(LogLevel level, std::string_view category, std::string_view words);
/// The same words, "..." for each that is not kept, and nothing behind the first quotation mark.
[[nodiscard]] std::string Harmless(std::string_view words);

} // namespace Log

} // namespace tessa
