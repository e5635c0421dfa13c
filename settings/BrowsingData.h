#pragma once
#include <cstdint>
#include <functional>

namespace tessa {

/// What the user wants forgotten of where pages have been.
struct BrowsingData {
    bool cookies = false;
    bool siteData = false; ///< what sites keep besides cookies
    bool cache = false;
    bool visitedLinks = false;
    bool typed = false;       ///< addresses and searches of the boxes
    bool history = false;     ///< the pages that were read, with their text
    std::int64_t seconds = 0; ///< how far back, for cookies, visited links and the history; 0 for all of them

    [[nodiscard]] bool Any() const { return cookies || siteData || cache || visitedLinks || typed || history; }
    friend bool operator==(const BrowsingData&, const BrowsingData&) = default;
};

/// How far the clearing got. `AtNextStart`: what sites have stored has to wait for the next start. `NotAll`: nor will
/// the next start bring it about.
enum class Cleared { Yes, AtNextStart, NotAll };

/// Told once things are forgotten.
using Forgotten = std::function<void(Cleared)>;

} // namespace tessa
