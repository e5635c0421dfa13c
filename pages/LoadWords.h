#pragma once
#include "base/Text.h"

#include <cstdint>

namespace tessa {

/// How the load of a page has ended.
enum class LoadEnd {
    Done,
    Stopped,     ///< by its user, or because something else came of it: a download, another page
    NoHost,      ///< nobody knows a host of that name
    Refused,     ///< the host took no connection, or broke it off
    TimedOut,    ///< the host did not answer
    Offline,     ///< this computer has no network
    Certificate, ///< the host could not prove who it is
    NoFile,      ///< there is no such file on this computer
    Answered,    ///< the server sent a page that says what it has not got
    Failed,      ///< anything else
};

/// What the status bar tells about a page and its loads.
namespace LoadWords {

/// A load has begun, and nothing of it has come.
inline constexpr TextView kBegun = u"Connecting...";
/// The page's process has ended by itself.
inline constexpr TextView kDied = u"The page has stopped working.";

/// Where a link leads that is pointed at; empty for none. `address` is encoded, so that nothing can hide in it.
[[nodiscard]] Text Link(TextView address);

/// How a load has ended, for the status bar. `host` is where it was to come from, `status` the server's number for an
/// answer. Empty when there is nothing to tell.
[[nodiscard]] Text Ended(LoadEnd end, TextView host, std::int32_t status);

} // namespace LoadWords

} // namespace tessa
