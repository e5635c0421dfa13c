#pragma once
#include "base/Text.h"

namespace tessa {

/// What the program is called and which one it is; every place that says so takes it from here.
namespace Version {

inline constexpr TextView kProduct = u"TessaView";
inline constexpr TextView kNumber = u"3.02";
/// The number in its parts.
inline constexpr int kMajor = 3;
inline constexpr int kMinor = 2;
inline constexpr int kRevision = 159;

} // namespace Version

} // namespace tessa
