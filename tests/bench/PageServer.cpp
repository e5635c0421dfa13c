// A web server for the benchmarks: one port on as many loopback hosts as asked for, every answer a little late as from
// a real network, and a log of what was asked for when. Two programs that load the same pages are so measured from
// outside, in the same way.
//
//     bench_server [--hosts N] [--port P] [--delay MILLISECONDS]
//
// It listens on 127.0.1.1, 127.0.1.2, ... and prints "port P" when it is ready. It ends when its standard input does.
// Any host also answers, at once and unlogged:
//     /control/log               a line a request: microseconds of the monotonic clock, host, path
//     /control/reset             empties the log
//     /control/wait?n=N&ms=T     answers when N different /done requests are in the log or T milliseconds are over:
//                                the number of them that are
#include "Pages.h"

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tessa {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::size_t kLongestRequest = 64 * 1024;
constexpr int kMostHosts = 250;

struct Options {
    int hosts = 100;
    int port = 0; ///< 0: any free one
    milliseconds delay{20};
};

struct Connection {
    std::string host;
    std::string in;
    std::string out;
};

struct Request {
    Clock::time_point time;
    std::string host;
    std::string path;
};

/// An answer that is due later, or someone who waits for pages to be done.
struct Later {
    int socket = -1;
    std::string path; ///< of what is to be answered; empty for one who waits
    std::size_t pages = 0;
};

std::string HostName(int number) { return "127.0.1." + std::to_string(number); }

long NumberIn(const std::string& path, const char* key) {
    const auto place = path.find(key);
    return place == std::string::npos ? 0 : std::atol(path.c_str() + place + std::strlen(key));
}

class Server {
public:
    explicit Server(const Options& options) : m_delay(options.delay), m_epoll(epoll_create1(EPOLL_CLOEXEC)) {
        Watch(STDIN_FILENO, EPOLLIN);
    }

    /// Listens on that many hosts at one port; says why and gives 0 when it cannot.
    int Listen(int hosts, int port);
    void Run();

private:
    void Watch(int socket, std::uint32_t events);
    void OnEvent(int socket, std::uint32_t events);
    void Accept(int listener);
    void Read(int socket);
    void TakeRequests(int socket);
    void Answer(int socket, const std::string& path);
    void Control(int socket, const std::string& path);
    void Send(int socket, const tessa::Answer& answer);
    void Flush(int socket);
    void Close(int socket);
    void AnswerWhatIsDue();
    [[nodiscard]] int Timeout() const;
    [[nodiscard]] std::string Log() const;

    milliseconds m_delay;
    int m_epoll;
    bool m_ended = false;
    std::map<int, std::string> m_listeners;
    std::map<int, Connection> m_connections;
    std::multimap<Clock::time_point, Later> m_later;
    std::vector<Request> m_log;
    std::set<std::string> m_done;
};

int ListenOn(const std::string& host, int port) {
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const int yes = 1;
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    inet_pton(AF_INET, host.c_str(), &address.sin_addr);
    if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 && listen(listener, 64) == 0) {
        return listener;
    }
    std::fprintf(stderr, "bench_server: %s:%d: %s\n", host.c_str(), port, std::strerror(errno));
    close(listener);
    return -1;
}

int Server::Listen(int hosts, int port) {
    for (int i = 1; i <= hosts; ++i) {
        const int listener = ListenOn(HostName(i), port);
        if (listener < 0) return 0;
        sockaddr_in address{};
        socklen_t size = sizeof address;
        getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
        port = ntohs(address.sin_port);
        m_listeners[listener] = HostName(i);
        Watch(listener, EPOLLIN);
    }
    return port;
}

void Server::Run() {
    std::array<epoll_event, 64> events{};
    while (!m_ended) {
        const int count = epoll_wait(m_epoll, events.data(), static_cast<int>(events.size()), Timeout());
        for (int i = 0; i < count; ++i)
            OnEvent(events[static_cast<std::size_t>(i)].data.fd, events[static_cast<std::size_t>(i)].events);
        AnswerWhatIsDue();
    }
}

void Server::Watch(int socket, std::uint32_t events) {
    epoll_event event{};
    event.events = events;
    event.data.fd = socket;
    if (epoll_ctl(m_epoll, EPOLL_CTL_ADD, socket, &event) != 0) epoll_ctl(m_epoll, EPOLL_CTL_MOD, socket, &event);
}

void Server::OnEvent(int socket, std::uint32_t events) {
    if (socket == STDIN_FILENO) {
        char ignored[256];
        m_ended = read(STDIN_FILENO, ignored, sizeof ignored) <= 0;
    } else if (m_listeners.contains(socket)) {
        Accept(socket);
    } else {
        if (events & EPOLLOUT) Flush(socket);
        if (events & (EPOLLIN | EPOLLHUP | EPOLLERR)) Read(socket);
    }
}

void Server::Accept(int listener) {
    const int socket = accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (socket < 0) return;
    const int yes = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    m_connections[socket].host = m_listeners[listener];
    Watch(socket, EPOLLIN);
}

void Server::Read(int socket) {
    const auto found = m_connections.find(socket);
    if (found == m_connections.end()) return;
    char bytes[16 * 1024];
    const auto count = read(socket, bytes, sizeof bytes);
    if (count < 0 && errno == EAGAIN) return;
    if (count <= 0 || found->second.in.size() > kLongestRequest) {
        Close(socket);
        return;
    }
    found->second.in.append(bytes, static_cast<std::size_t>(count));
    TakeRequests(socket);
}

// Requests have no body: the pages send none.
void Server::TakeRequests(int socket) {
    auto& connection = m_connections[socket];
    for (auto end = connection.in.find("\r\n\r\n"); end != std::string::npos; end = connection.in.find("\r\n\r\n")) {
        const std::string head = connection.in.substr(0, end);
        connection.in.erase(0, end + 4);
        const auto from = std::min(head.find(' '), head.size() - 1) + 1;
        const std::string path = head.substr(from, head.find(' ', from) - from);
        if (path.starts_with("/control/")) {
            Control(socket, path);
            continue;
        }
        const auto now = Clock::now();
        m_log.push_back({now, connection.host, path});
        if (path.starts_with("/done?")) m_done.insert(path);
        m_later.emplace(now + m_delay, Later{socket, path, 0});
    }
}

void Server::Answer(int socket, const std::string& path) { Send(socket, AnswerFor(path)); }

void Server::Control(int socket, const std::string& path) {
    if (path.starts_with("/control/wait?")) {
        const milliseconds time{NumberIn(path, "ms=")};
        m_later.emplace(Clock::now() + time, Later{socket, {}, static_cast<std::size_t>(NumberIn(path, "n="))});
        return;
    }
    if (path == "/control/reset") {
        m_log.clear();
        m_done.clear();
    }
    const bool known = path == "/control/reset" || path == "/control/log";
    Send(socket, {.status = known ? 200 : 404, .body = known ? Log() : std::string()});
}

void Server::Send(int socket, const tessa::Answer& answer) {
    auto& out = m_connections[socket].out;
    out.append("HTTP/1.1 ").append(answer.status == 200 ? "200 OK" : "404 Not Found");
    out.append("\r\nContent-Type: ").append(answer.type).append("\r\nCache-Control: ");
    out.append(answer.kept).append("\r\nContent-Length: ");
    out.append(std::to_string(answer.body.size())).append("\r\n\r\n").append(answer.body);
    Flush(socket);
}

void Server::Flush(int socket) {
    const auto found = m_connections.find(socket);
    if (found == m_connections.end()) return;
    auto& out = found->second.out;
    while (!out.empty()) {
        const auto count = send(socket, out.data(), out.size(), MSG_NOSIGNAL);
        if (count <= 0) break;
        out.erase(0, static_cast<std::size_t>(count));
    }
    Watch(socket, out.empty() ? EPOLLIN : EPOLLIN | EPOLLOUT);
}

void Server::Close(int socket) {
    // The number of the socket is given to the next one, which must not get what this one asked for.
    std::erase_if(m_later, [socket](const auto& each) { return each.second.socket == socket; });
    m_connections.erase(socket);
    close(socket);
}

void Server::AnswerWhatIsDue() {
    const auto now = Clock::now();
    for (auto each = m_later.begin(); each != m_later.end();) {
        const bool waits = each->second.path.empty();
        const bool due = each->first <= now || (waits && m_done.size() >= each->second.pages);
        if (!due) {
            ++each;
            continue;
        }
        const Later later = each->second;
        each = m_later.erase(each);
        if (waits) {
            Send(later.socket, {.status = 200, .body = std::to_string(m_done.size())});
        } else {
            Answer(later.socket, later.path);
        }
    }
}

int Server::Timeout() const {
    if (m_later.empty()) return -1;
    const auto left = std::chrono::ceil<milliseconds>(m_later.begin()->first - Clock::now());
    return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
}

std::string Server::Log() const {
    std::string lines;
    for (const auto& request : m_log) {
        const auto time = std::chrono::duration_cast<std::chrono::microseconds>(request.time.time_since_epoch());
        lines += std::to_string(time.count()) + ' ' + request.host + ' ' + request.path + '\n';
    }
    return lines;
}

Options FromArguments(int count, char** arguments) {
    Options options;
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string name = arguments[i];
        const int value = std::atoi(arguments[i + 1]);
        if (name == "--hosts") options.hosts = std::clamp(value, 1, kMostHosts);
        if (name == "--port") options.port = value;
        if (name == "--delay") options.delay = milliseconds(value);
    }
    return options;
}

} // namespace

} // namespace tessa

int main(int argc, char** argv) {
    using namespace tessa;
    std::signal(SIGPIPE, SIG_IGN);
    const Options options = FromArguments(argc, argv);
    Server server(options);
    const int port = server.Listen(options.hosts, options.port);
    if (port == 0) return EXIT_FAILURE;
    std::printf("port %d\n", port);
    std::fflush(stdout);
    server.Run();
    return EXIT_SUCCESS;
}
