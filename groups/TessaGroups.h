#pragma once
#include "common/CStrings.h"

/// TessaGroup files: INI text whose section "TessaGroup" names one address a key.
namespace TessaGroups {

/// The value of a key of an INI file, at most 511 bytes of it.
[[nodiscard]] Text ReadIniValue(TextView path, TextView section, TextView key, TextView whenMissing);

/// The addresses of a group file in the order of its keys, whatever the keys are; empty ones stay. Empty when the
/// file or its section cannot be read. Keys beyond 16382 bytes of names are left out.
[[nodiscard]] CStrings Load(TextView path);

} // namespace TessaGroups
