#include "pages/CookieNotes.h"

#include "base/Percent.h"
#include "base/Records.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tessa {

namespace {

constexpr TextView kCookie = u"Cookie";
constexpr TextView kTime = u"Time", kDomain = u"Domain", kPath = u"Path", kName = u"Name";

/// What the first versions wrote, a line a cookie: these fields in this order, encoded, with a space between them.
constexpr std::array kFirstFields{kTime, kDomain, kPath, kName};

// A name may be any bytes, so a unit of the text is a byte.
Text UnitsOf(std::string_view bytes) {
    Text text;
    for (const char each : bytes) text += static_cast<char16_t>(static_cast<unsigned char>(each));
    return text;
}

std::optional<std::string> BytesIn(const Record& record, TextView field) {
    constexpr char16_t mostOfAByte = 0xFF;
    const Text* text = record.FindText(field);
    if (!text || std::ranges::any_of(*text, [](char16_t unit) { return unit > mostOfAByte; })) return std::nullopt;
    return std::string(text->begin(), text->end());
}

std::optional<Record> CookieOfFirst(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (std::ranges::count(line, ' ') + 1 != static_cast<std::ptrdiff_t>(kFirstFields.size())) return std::nullopt;
    Record record{.Name = Text(kCookie), .Values = {}};
    for (const TextView field : kFirstFields) {
        const std::size_t end = std::min(line.find(' '), line.size());
        record.Values.emplace(field, UnitsOf(PercentDecoded(line.substr(0, end))));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return record;
}

std::vector<Record> CookiesOfFirst(std::string_view lines) {
    std::vector<Record> records;
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        if (auto record = CookieOfFirst(lines.substr(0, end))) records.push_back(*std::move(record));
        lines.remove_prefix(end + 1);
    }
    return records;
}

std::optional<CookieNote> NoteOf(const Record& record) {
    const auto time = record.FindNumber(kTime);
    auto domain = BytesIn(record, kDomain), path = BytesIn(record, kPath), name = BytesIn(record, kName);
    if (record.Name != kCookie || !record.Whole || !time || !domain || !path || !name) return std::nullopt;
    return CookieNote{*std::move(domain), *std::move(path), *std::move(name), *time};
}

} // namespace

namespace CookieNotes {

std::string Bytes(std::span<const CookieNote> notes) {
    std::vector<Record> records;
    for (const CookieNote& each : notes) {
        records.push_back({.Name = Text(kCookie),
                           .Values = {{Text(kTime), Decimal(each.Time)},
                                      {Text(kDomain), UnitsOf(each.Domain)},
                                      {Text(kPath), UnitsOf(each.Path)},
                                      {Text(kName), UnitsOf(each.Name)}}});
    }
    return RecordBytes(records);
}

std::vector<CookieNote> Read(std::string_view bytes) {
    const std::string_view lines = WholeLines(bytes);
    const bool first = !lines.starts_with('[');
    std::vector<CookieNote> notes;
    for (const Record& record : first ? CookiesOfFirst(lines) : ParseRecords(lines)) {
        if (auto note = NoteOf(record)) notes.push_back(*std::move(note));
    }
    return notes;
}

} // namespace CookieNotes

} // namespace tessa
