#pragma once
// The text of files that are ours alone. A record is a line "[Name]", then a line "Field=value" for each field, in
// UTF-8. A text stands as it is. A list is its entries in double quotes, separated by commas. An empty value is an
// empty text and an empty list alike. \\ \" \n \r \t and \xHHHH (one UTF-16 unit) stand for what would not survive
// otherwise. Blank lines, and lines that begin with ";" or "#", say nothing.

#include "base/Text.h"

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tessa {

/// What stands under the name of a field.
using FieldValue = std::variant<Text, std::vector<Text>>;
using Fields = std::map<Text, FieldValue, std::less<>>;

/// The field's text; nothing where there is no such field, or a list.
[[nodiscard]] const Text* TextIn(const Fields& fields, TextView name);
/// The field's entries; nothing where there is no such field, or a text that is not empty.
[[nodiscard]] std::optional<std::vector<Text>> ListIn(const Fields& fields, TextView name);

/// A record of a file. Names of records and of fields are letters and digits.
struct Record {
    Text Name; ///< empty for lines before the first name
    Fields Values;
    bool Whole = true; ///< each of its lines could be understood

    /// See `TextIn`.
    [[nodiscard]] const Text* FindText(TextView field) const { return TextIn(Values, field); }
    /// The field's whole number; nothing for any other text.
    [[nodiscard]] std::optional<std::int64_t> FindNumber(TextView field) const;
    /// Whether the field says "1".
    [[nodiscard]] bool Says(TextView field) const;

    bool operator==(const Record&) const = default;
};

/// The file's bytes for these records; any text comes back from them unit by unit. Fields come in order of their names.
[[nodiscard]] std::string RecordBytes(std::span<const Record> records);

/// The records in a file's bytes, in their order. A line that cannot be understood costs its record the mark `Whole`,
/// and nothing else. Of a field that is there twice, the last one counts.
[[nodiscard]] std::vector<Record> ParseRecords(std::string_view bytes);

/// The bytes up to the last end of a line: a line without an end was cut off.
[[nodiscard]] std::string_view WholeLines(std::string_view bytes);

} // namespace tessa
