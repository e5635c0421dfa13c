#pragma once
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tessa {

/// Local sockets (AF_UNIX, SOCK_STREAM; named pipes on the other platform) that processes of the same user listen on.
/// The system tells whose process is at the other end, and nobody can forge it.
namespace LocalSocket {

enum class Found {
    Listener, ///< a process of this user takes connections there
    Remains,  ///< a socket that nobody listens on
    Foreign   ///< another user's, or no socket at all
};

/// Whether the process at the other end of a connection is one of this user's.
[[nodiscard]] bool IsOurUser(std::intptr_t connection);

/// What is at a path. Waits for nothing.
[[nodiscard]] Found Look(const std::string& path);

/// Says `message` to the listener and gives the line that it answers, with its end. Nothing when there is no listener,
/// or when it cuts the connection. Nothing either when its line exceeds `longest` bytes, or `patience` is over.
[[nodiscard]] std::optional<std::string> Ask(const std::string& path, const std::string& message, std::size_t longest,
                                             std::chrono::milliseconds patience);

} // namespace LocalSocket

} // namespace tessa
