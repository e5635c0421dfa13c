#pragma once
// The settings file's text: a line "[General]", then one line "Name=value" a setting, in UTF-8. A text stands as it
// is; a list is its entries in double quotes, separated by commas; an empty value is an empty text and an empty list
// alike. \\ \" \n \r \t and \xHHHH (one UTF-16 unit) stand for what would not survive otherwise.

#include "base/Text.h"

#include <map>
#include <variant>
#include <vector>

/// What stands under a name.
using SettingsValue = std::variant<Text, std::vector<Text>>;
using SettingsValues = std::map<Text, SettingsValue, std::less<>>;

/// The file's bytes for these values; any text comes back from them unit by unit. A name is letters and digits.
[[nodiscard]] std::string SettingsBytes(const SettingsValues& values);

/// The values in a file's bytes; nothing when a single line of them cannot be understood. Empty bytes hold none.
/// Blank lines, and lines that begin with ";" or "#", say nothing.
[[nodiscard]] std::optional<SettingsValues> ParseSettings(std::string_view bytes);
