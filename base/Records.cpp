#include "base/Records.h"

#include "base/ResumeNext.h"

#include <algorithm>
#include <charconv>

namespace tessa {

namespace {

constexpr TextView kHexDigits = u"0123456789ABCDEF";

// What UTF-8 cannot hold, what would end the line, and blanks at the ends that an editor would cut.
bool NeedsNumber(TextView text, std::size_t at) {
    const char16_t unit = text[at];
    if (unit < u' ' || unit == 0x7F || unit == 0xFEFF) return true;
    if (unit == u' ') return at == 0 || at + 1 == text.size();
    return IsUnpaired(text, at);
}

void AppendEscaped(Text& line, TextView text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (unit == u'\\' || unit == u'"') {
            line += u'\\';
            line += unit;
        } else if (unit == u'\n') {
            line += u"\\n";
        } else if (unit == u'\r') {
            line += u"\\r";
        } else if (unit == u'\t') {
            line += u"\\t";
        } else if (NeedsNumber(text, at)) {
            line += u"\\x";
            for (const int shift : {12, 8, 4, 0}) line += kHexDigits[(unit >> shift) & 0xF];
        } else {
            line += unit;
        }
    }
}

void AppendValue(Text& line, const FieldValue& value) {
    if (const auto* text = std::get_if<Text>(&value)) return AppendEscaped(line, *text);
    TextView separator;
    for (const Text& entry : std::get<std::vector<Text>>(value)) {
        line += separator;
        line += u'"';
        AppendEscaped(line, entry);
        line += u'"';
        separator = u", ";
    }
}

// `rest` stands behind the "\x".
std::optional<char16_t> TakeNumber(TextView& rest) {
    if (rest.size() < 4) return std::nullopt;
    unsigned unit = 0;
    for (const char16_t digit : rest.substr(0, 4)) {
        const auto value = kHexDigits.find(digit >= u'a' && digit <= u'f' ? char16_t(digit - 0x20) : digit);
        if (value == TextView::npos) return std::nullopt;
        unit = unit * 16 + static_cast<unsigned>(value);
    }
    rest.remove_prefix(4);
    return static_cast<char16_t>(unit);
}

// `rest` stands behind the backslash.
std::optional<char16_t> TakeEscape(TextView& rest) {
    if (rest.empty()) return std::nullopt;
    const char16_t letter = rest.front();
    rest.remove_prefix(1);
    switch (letter) {
    case u'\\':
    case u'"':
        return letter;
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    case u'x':
        return TakeNumber(rest);
    default:
        return std::nullopt;
    }
}

// Takes up to the end, or up to a closing quote, which is taken too and must be there.
std::optional<Text> TakeText(TextView& rest, bool quoted) {
    Text text;
    while (!rest.empty()) {
        const char16_t unit = rest.front();
        rest.remove_prefix(1);
        if (quoted && unit == u'"') return text;
        if (unit != u'\\') {
            text += unit;
            continue;
        }
        const auto escaped = TakeEscape(rest);
        if (!escaped) return std::nullopt;
        text += *escaped;
    }
    return quoted ? std::nullopt : std::optional(std::move(text));
}

void SkipBlanks(TextView& rest) { rest.remove_prefix(std::min(rest.find_first_not_of(u" \t"), rest.size())); }

std::optional<FieldValue> ParseValue(TextView rest) {
    if (!rest.starts_with(u'"')) {
        if (auto text = TakeText(rest, false)) return *std::move(text);
        return std::nullopt;
    }
    std::vector<Text> entries;
    while (rest.starts_with(u'"')) {
        rest.remove_prefix(1);
        auto entry = TakeText(rest, true);
        if (!entry) return std::nullopt;
        entries.push_back(*std::move(entry));
        SkipBlanks(rest);
        if (rest.empty()) return entries;
        if (!rest.starts_with(u',')) return std::nullopt;
        rest.remove_prefix(1);
        SkipBlanks(rest);
    }
    return std::nullopt;
}

bool IsName(TextView name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char16_t unit) {
        return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9');
    });
}

// The name between brackets; empty when it is none.
TextView HeaderName(TextView line) {
    if (!line.ends_with(u']')) return {};
    const TextView name = line.substr(1, line.size() - 2);
    return IsName(name) ? name : TextView();
}

bool TakeField(TextView line, Fields& fields) {
    const auto equals = line.find(u'=');
    if (equals == TextView::npos || !IsName(line.substr(0, equals))) return false;
    auto value = ParseValue(line.substr(equals + 1));
    if (!value) return false;
    fields.insert_or_assign(Text(line.substr(0, equals)), *std::move(value));
    return true;
}

// A name that cannot be read begins a record as well. The fields below it are not those of the record above.
void BeginRecord(TextView line, std::vector<Record>& records) {
    const TextView name = HeaderName(line);
    records.push_back({.Name = Text(name), .Values = {}, .Whole = !name.empty()});
}

void TakeLine(std::string_view bytes, std::vector<Record>& records) {
    if (bytes.ends_with('\r')) bytes.remove_suffix(1);
    if (bytes.empty() || bytes.front() == ';' || bytes.front() == '#') return;
    const auto line = FromUtf8(bytes);
    if (line && line->front() == u'[') return BeginRecord(*line, records);
    if (records.empty()) records.emplace_back();
    if (!line || !TakeField(*line, records.back().Values)) records.back().Whole = false;
}

void AppendRecord(Text& all, const Record& record) {
    Must(IsName(record.Name));
    all += u'[' + record.Name + u"]\n";
    for (const auto& [name, value] : record.Values) {
        Must(IsName(name));
        all += name;
        all += u'=';
        AppendValue(all, value);
        all += u'\n';
    }
}

} // namespace

const Text* TextIn(const Fields& fields, TextView name) {
    const auto found = fields.find(name);
    return found == fields.end() ? nullptr : std::get_if<Text>(&found->second);
}

std::optional<std::vector<Text>> ListIn(const Fields& fields, TextView name) {
    const auto found = fields.find(name);
    if (found == fields.end()) return std::nullopt;
    if (const auto* list = std::get_if<std::vector<Text>>(&found->second)) return *list;
    // An empty list is written as an empty text.
    return std::get<Text>(found->second).empty() ? std::optional(std::vector<Text>()) : std::nullopt;
}

std::optional<std::int64_t> Record::FindNumber(TextView field) const {
    const Text* text = FindText(field);
    if (!text) return std::nullopt;
    const std::string digits = ToUtf8(*text);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return number;
}

bool Record::Says(TextView field) const {
    const Text* text = FindText(field);
    return text && *text == u"1";
}

std::string RecordBytes(std::span<const Record> records) {
    Text all;
    for (const Record& record : records) AppendRecord(all, record);
    return ToUtf8(all);
}

std::vector<Record> ParseRecords(std::string_view bytes) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    std::vector<Record> records;
    while (!bytes.empty()) {
        const auto end = std::min(bytes.find('\n'), bytes.size());
        TakeLine(bytes.substr(0, end), records);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return records;
}

std::string_view WholeLines(std::string_view bytes) {
    const auto end = bytes.rfind('\n');
    return end == std::string_view::npos ? std::string_view() : bytes.substr(0, end + 1);
}

} // namespace tessa
