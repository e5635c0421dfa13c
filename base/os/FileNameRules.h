#pragma once
#include "base/Text.h"

namespace tessa {

// What a disk takes as the name of a file.

/// Whether a name stands for a device where names of devices are kept from files: "CON", "com1.txt".
[[nodiscard]] bool NamesDevice(TextView name);
/// The name with "-" for what no name may hold on this system. It is changed further where it could be none.
[[nodiscard]] Text FitForDisk(Text name);

} // namespace tessa
