#pragma once
#include "common/Text.h"

/// What the program is called and which one it is; every place that says so takes it from here.
namespace Version {

inline constexpr TextView kProduct = u"TessaView";
inline constexpr TextView kNumber = u"3.02";
/// The program's revision number.
inline constexpr int kRevision = 159;

} // namespace Version
