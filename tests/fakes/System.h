#pragma once

namespace tessa {

/// Whether the tests run on the other desktop platform. A test about what only POSIX has says so in its first line,
/// with the reason: `if (kOtherPlatform) GTEST_SKIP() << "a link needs a right of its own";`. What does not even
/// compile there stands in a folder "posix".
#ifdef _WIN32
inline constexpr bool kOtherPlatform = true;
#else
inline constexpr bool kOtherPlatform = false;
#endif

} // namespace tessa
