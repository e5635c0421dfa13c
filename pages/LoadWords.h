#pragma once
#include "base/Text.h"

#include <cstdint>

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

/// What is told about loads.
namespace LoadWords {

/// How a load has ended, for the status bar: `host` is where it was to come from, `status` the server's number for an
/// answer. Empty when there is nothing to tell.
[[nodiscard]] Text Ended(LoadEnd end, TextView host, std::int32_t status);

} // namespace LoadWords
