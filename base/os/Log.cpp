#include "base/os/Log.h"

#include <algorithm>
#include <atomic>

namespace tessa {

namespace {

std::atomic<LogFile*> currentLog = nullptr;

void PutNote(LogLevel level, LogPart part, std::string_view words) {
    if (LogFile* file = currentLog) file->Write(level, part, words);
}

// Some quotation marks are no ASCII.
bool MayQuote(char each) {
    return each == '"' || each == '\'' || each == '`' || static_cast<unsigned char>(each) > 0x7F;
}

bool IsAsciiLetter(char each) { return (each >= 'a' && each <= 'z') || (each >= 'A' && each <= 'Z'); }

// A word of letters, or a short number, with at most a sign of punctuation behind it. Whatever has a point, a slash, a
// colon or an "@" inside may be part of an address.
bool IsHarmless(std::string_view word) {
    constexpr std::size_t kLongestWord = 24, kLongestNumber = 6;
    if (!word.empty() && std::string_view(".,:;!").find(word.back()) != std::string_view::npos) word.remove_suffix(1);
    const bool letters = std::ranges::all_of(word, IsAsciiLetter);
    const bool digits = std::ranges::all_of(word, [](char each) { return each >= '0' && each <= '9'; });
    return !word.empty() && word.size() <= (digits ? kLongestNumber : kLongestWord) && (letters || digits);
}

} // namespace

namespace Log {

void To(LogFile* file) { currentLog = file; }

void Note(LogLevel level, LogPart part, LogWords words, std::optional<std::int64_t> number) {
    PutNote(level, part, number ? std::string(words.Words) + ' ' + std::to_string(*number) : words.Words);
}

void NoteFailedStep(const std::source_location& where) {
    PutNote(LogLevel::Warning, LogPart::Program, "a step failed at " + Place(where));
}

std::string Place(const std::source_location& where) {
    const std::string_view path = where.file_name();
    const std::size_t file = path.rfind('/');
    const std::size_t folder = file == std::string_view::npos || file == 0 ? file : path.rfind('/', file - 1);
    const std::string_view name = folder == std::string_view::npos ? path : path.substr(folder + 1);
    return std::string(name) + ':' + std::to_string(where.line()) + " (" + where.function_name() + ')';
}

void NoteMistake(const std::source_location& where) {
    PutNote(LogLevel::Error, LogPart::Program, "internal error at " + Place(where));
}

void NoteForeign(LogLevel level, std::string_view category, std::string_view words) {
    // A page's own words come through these.
    const bool ofPages = category.starts_with("js") || category.starts_with("qt.webengine");
    PutNote(level, LogPart::Desktop,
            std::string(category.substr(0, 40)) + (ofPages ? std::string() : " " + Harmless(words)));
}

std::string Harmless(std::string_view words) {
    std::string kept;
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        const std::string_view word = words.substr(0, end);
        words.remove_prefix(std::min(end + 1, words.size()));
        if (word.empty()) continue;
        kept += (kept.empty() ? "" : " ") + std::string(IsHarmless(word) ? word : "...");
        // Where what was quoted ends nobody can tell: a title may hold quotation marks itself.
        if (std::ranges::any_of(word, MayQuote)) break;
    }
    return kept;
}

} // namespace Log

} // namespace tessa
