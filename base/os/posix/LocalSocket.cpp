#include "base/os/LocalSocket.h"

#include "base/os/AnswerLine.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace tessa {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPauseBetweenCalls{2};
constexpr std::size_t kReadAtOnce = 1024;

/// A socket that ends with its holder, and never holds it up.
class Client {
public:
    Client() : m_descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {}
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client() {
        if (m_descriptor >= 0) ::close(m_descriptor);
    }

    /// 0, or the system's error.
    [[nodiscard]] int Connect(const std::string& path) const {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        if (path.size() >= sizeof address.sun_path) return ENAMETOOLONG;
        std::ranges::copy(path, address.sun_path);
        const auto* generic = reinterpret_cast<const sockaddr*>(&address);
        return ::connect(m_descriptor, generic, sizeof address) == 0 ? 0 : errno;
    }
    [[nodiscard]] bool IsOurUser() const { return LocalSocket::IsOurUser(m_descriptor); }
    /// Whether it can be written or read before the deadline, or has been cut off.
    [[nodiscard]] bool Await(short what, Clock::time_point deadline) const {
        while (true) {
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
            pollfd waiting{m_descriptor, what, 0};
            const int ready = ::poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left, 0)));
            if (ready > 0) return true;
            if (ready == 0 || errno != EINTR) return false;
        }
    }
    [[nodiscard]] ssize_t Send(std::string_view bytes) const {
        return ::send(m_descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
    template<std::size_t N>
    [[nodiscard]] ssize_t Receive(std::array<char, N>& bytes) const {
        return ::recv(m_descriptor, bytes.data(), bytes.size(), 0);
    }

private:
    const int m_descriptor;
};

bool ComesLater(ssize_t done) { return done < 0 && (errno == EAGAIN || errno == EINTR); }

// A listener for which so many wait that no more are let in is called again.
bool Connect(const Client& client, const std::string& path, Clock::time_point deadline) {
    int error = client.Connect(path);
    while (error == EAGAIN && Clock::now() < deadline) {
        std::this_thread::sleep_for(kPauseBetweenCalls);
        error = client.Connect(path);
    }
    return error == 0 && client.IsOurUser();
}

bool Say(const Client& client, std::string_view message, Clock::time_point deadline) {
    while (!message.empty()) {
        if (!client.Await(POLLOUT, deadline)) return false;
        const ssize_t sent = client.Send(message);
        if (sent > 0) message.remove_prefix(static_cast<std::size_t>(sent));
        if (sent <= 0 && !ComesLater(sent)) return false;
    }
    return true;
}

std::optional<std::string> Hear(const Client& client, std::size_t longest, Clock::time_point deadline) {
    AnswerLine answer(longest);
    while (client.Await(POLLIN, deadline)) {
        std::array<char, kReadAtOnce> bytes{};
        const ssize_t received = client.Receive(bytes);
        if (ComesLater(received)) continue;
        if (received <= 0) return std::nullopt;
        const auto state = answer.Add({bytes.data(), static_cast<std::size_t>(received)});
        if (state == AnswerLine::State::TooLong) return std::nullopt;
        if (state == AnswerLine::State::Whole) return answer.Line();
    }
    return std::nullopt;
}

} // namespace

namespace LocalSocket {

bool IsOurUser(std::intptr_t connection) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(static_cast<int>(connection), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
}

Found Look(const std::string& path) {
    const Client client;
    const int error = client.Connect(path);
    if (error == 0) return client.IsOurUser() ? Found::Listener : Found::Foreign;
    // It lives, but so many wait for it already that no more are let in.
    if (error == EAGAIN) return Found::Listener;
    return error == ECONNREFUSED ? Found::Remains : Found::Foreign;
}

std::optional<std::string> Ask(const std::string& path, const std::string& message, std::size_t longest,
                               std::chrono::milliseconds patience) {
    const auto deadline = Clock::now() + patience;
    const Client client;
    if (!Connect(client, path, deadline) || !Say(client, message, deadline)) return std::nullopt;
    return Hear(client, longest, deadline);
}

} // namespace LocalSocket

} // namespace tessa
