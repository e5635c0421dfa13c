#include "base/os/LocalSocket.h"

#include "base/os/AnswerLine.h"
#include "base/os/windows/Handle.h"
#include "base/os/windows/UserAlone.h"
#include "base/os/windows/WidePath.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <thread>

namespace tessa {

// What listens under a name here is a pipe with a name. It leaves nothing behind when its process ends.

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPauseBetweenCalls{2};
constexpr std::size_t kReadAtOnce = 1024;

enum class Called { Connected, Busy, Nobody };

/// One end of a pipe whose reading and writing can be given up.
class PipeClient {
public:
    explicit PipeClient(const std::string& path)
        // The listener may learn who calls, but not act in his name.
        : m_pipe(::CreateFileW(Wide(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                               FILE_FLAG_OVERLAPPED | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr)),
          m_called(m_pipe.Open()                         ? Called::Connected
                   : ::GetLastError() == ERROR_PIPE_BUSY ? Called::Busy
                                                         : Called::Nobody),
          m_done(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}

    [[nodiscard]] Called Result() const { return m_called; }
    [[nodiscard]] bool IsOurUser() const {
        return LocalSocket::IsOurUser(reinterpret_cast<std::intptr_t>(m_pipe.Get()));
    }
    /// How many bytes were written; nothing when the pipe was cut, or time was up.
    [[nodiscard]] std::optional<std::size_t> Send(std::string_view bytes, Clock::time_point deadline) const {
        OVERLAPPED work = NewWork();
        return Awaited(::WriteFile(m_pipe.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), nullptr, &work), work,
                       deadline);
    }
    [[nodiscard]] std::optional<std::size_t> Receive(std::array<char, kReadAtOnce>& bytes,
                                                     Clock::time_point deadline) const {
        OVERLAPPED work = NewWork();
        return Awaited(::ReadFile(m_pipe.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), nullptr, &work), work,
                       deadline);
    }

private:
    [[nodiscard]] OVERLAPPED NewWork() const {
        OVERLAPPED work{};
        work.hEvent = m_done.Get();
        return work;
    }
    [[nodiscard]] std::optional<std::size_t> Awaited(BOOL begun, OVERLAPPED& work, Clock::time_point deadline) const {
        if (!begun && ::GetLastError() != ERROR_IO_PENDING) return std::nullopt;
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        const auto wait = static_cast<DWORD>(std::clamp<std::int64_t>(left, 0, INT32_MAX));
        if (::WaitForSingleObject(m_done.Get(), wait) != WAIT_OBJECT_0) ::CancelIo(m_pipe.Get());
        DWORD bytes = 0;
        if (!::GetOverlappedResult(m_pipe.Get(), &work, &bytes, TRUE)) return std::nullopt;
        return bytes;
    }

    const Handle m_pipe;
    const Called m_called;
    const Handle m_done;
};

bool Say(const PipeClient& client, std::string_view message, Clock::time_point deadline) {
    while (!message.empty()) {
        const auto sent = client.Send(message, deadline);
        if (!sent) return false;
        message.remove_prefix(*sent);
    }
    return true;
}

std::optional<std::string> Hear(const PipeClient& client, std::size_t longest, Clock::time_point deadline) {
    AnswerLine answer(longest);
    std::array<char, kReadAtOnce> bytes{};
    while (const auto received = client.Receive(bytes, deadline)) {
        const auto state = answer.Add({bytes.data(), *received});
        if (state == AnswerLine::State::TooLong) return std::nullopt;
        if (state == AnswerLine::State::Whole) return answer.Line();
    }
    return std::nullopt;
}

} // namespace

namespace LocalSocket {

bool IsOurUser(std::intptr_t connection) {
    const auto pipe = reinterpret_cast<HANDLE>(connection);
    DWORD flags = 0, process = 0;
    if (!::GetNamedPipeInfo(pipe, &flags, nullptr, nullptr, nullptr)) return false;
    const bool listens = (flags & PIPE_SERVER_END) != 0;
    const BOOL known =
        listens ? ::GetNamedPipeClientProcessId(pipe, &process) : ::GetNamedPipeServerProcessId(pipe, &process);
    return known && UserAlone::Runs(process);
}

Found Look(const std::string& path) {
    const PipeClient client(path);
    if (client.Result() == Called::Connected) return client.IsOurUser() ? Found::Listener : Found::Foreign;
    // It lives, but so many wait for it already that no more are let in.
    return client.Result() == Called::Busy ? Found::Listener : Found::Foreign;
}

std::optional<std::string> Ask(const std::string& path, const std::string& message, std::size_t longest,
                               std::chrono::milliseconds patience) {
    const auto deadline = Clock::now() + patience;
    while (true) {
        const PipeClient client(path);
        if (client.Result() == Called::Connected) {
            if (!client.IsOurUser() || !Say(client, message, deadline)) return std::nullopt;
            return Hear(client, longest, deadline);
        }
        if (client.Result() == Called::Nobody || Clock::now() >= deadline) return std::nullopt;
        std::this_thread::sleep_for(kPauseBetweenCalls);
    }
}

} // namespace LocalSocket

} // namespace tessa
