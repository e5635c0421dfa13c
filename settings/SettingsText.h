#pragma once
// The settings file's text: one record "General", see base/Records.h.

#include "base/Records.h"

namespace tessa {

using SettingsValue = FieldValue;
using SettingsValues = Fields;

/// The file's bytes for these values; any text comes back from them unit by unit. A name is letters and digits.
[[nodiscard]] std::string SettingsBytes(const SettingsValues& values);

/// The values in a file's bytes; nothing when a single line of them cannot be understood. Empty bytes hold none. The
/// name of the record may be missing, as when an editor has lost it.
[[nodiscard]] std::optional<SettingsValues> ParseSettings(std::string_view bytes);

} // namespace tessa
