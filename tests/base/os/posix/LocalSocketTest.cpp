#include "base/os/LocalSocket.h"
#include "tests/fakes/TemporaryFolder.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace tessa {

namespace {

using std::chrono::milliseconds;

constexpr std::size_t kLongest = 16;
constexpr milliseconds kLong{60000};

/// A listener that serves one connection as the test says, and then cuts it.
class Listener {
public:
    explicit Listener(const std::string& path) : m_descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::ranges::copy(path, address.sun_path);
        EXPECT_EQ(::bind(m_descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(m_descriptor, 1), 0);
    }
    ~Listener() {
        if (m_thread.joinable()) m_thread.join();
        ::close(m_descriptor);
    }
    void Serve(std::function<void(int connection)> serve) {
        m_thread = std::thread([this, serve = std::move(serve)] {
            const int connection = ::accept(m_descriptor, nullptr, nullptr);
            serve(connection);
            ::close(connection);
        });
    }

private:
    int m_descriptor;
    std::thread m_thread;
};

void Say(int connection, const std::string& text) {
    EXPECT_EQ(::send(connection, text.data(), text.size(), MSG_NOSIGNAL), static_cast<ssize_t>(text.size()));
}

std::string Hear(int connection, std::size_t size) {
    std::string heard(size, '\0');
    EXPECT_EQ(::recv(connection, heard.data(), size, MSG_WAITALL), static_cast<ssize_t>(size));
    return heard;
}

class LocalSockets : public testing::Test {
protected:
    /// What is answered to "hello".
    [[nodiscard]] std::optional<std::string> Ask(milliseconds patience = kLong) const {
        return LocalSocket::Ask(path, "hello", kLongest, patience);
    }

    TemporaryFolder folder;
    const std::string path = folder.Path("socket");
};

TEST_F(LocalSockets, AreTakenForWhatTheyAre) {
    EXPECT_EQ(LocalSocket::Look(path), LocalSocket::Found::Foreign) << "there is none";
    {
        const Listener listener(path);
        EXPECT_EQ(LocalSocket::Look(path), LocalSocket::Found::Listener);
        for (int waiting = 0; waiting < 4; ++waiting) EXPECT_EQ(LocalSocket::Look(path), LocalSocket::Found::Listener);
    }
    EXPECT_EQ(LocalSocket::Look(path), LocalSocket::Found::Remains);
    EXPECT_EQ(LocalSocket::Look(folder.Write("file", "")), LocalSocket::Found::Remains);
    EXPECT_EQ(LocalSocket::Look(folder.Path(std::string(200, 'x'))), LocalSocket::Found::Foreign);
}

TEST_F(LocalSockets, GiveTheLineThatIsAnsweredAndNothingBehindIt) {
    Listener listener(path);
    listener.Serve([](int connection) {
        EXPECT_EQ(Hear(connection, 5), "hello");
        Say(connection, "do");
        Say(connection, "ne\nmore");
    });
    EXPECT_EQ(Ask(), "done\n");
}

TEST_F(LocalSockets, AreLeftWhenTheLineIsTooLong) {
    Listener listener(path);
    listener.Serve([](int connection) { Say(connection, std::string(kLongest, 'x') + "\n"); });
    EXPECT_EQ(Ask(), std::nullopt);
}

TEST_F(LocalSockets, AreLeftWhenTheyCutTheConnection) {
    Listener listener(path);
    listener.Serve([](int connection) { Say(connection, "do"); });
    EXPECT_EQ(Ask(), std::nullopt);
}

TEST_F(LocalSockets, AreLeftWhenTheySayNothing) {
    const Listener listener(path);
    EXPECT_EQ(Ask(milliseconds(20)), std::nullopt);
}

TEST_F(LocalSockets, TakeWhatIsLongerThanTheyReadAtOnce) {
    const std::string text(std::size_t{2} << 20, 'x');
    Listener listener(path);
    listener.Serve([&](int connection) {
        EXPECT_EQ(Hear(connection, text.size()), text);
        Say(connection, "done\n");
    });
    EXPECT_EQ(LocalSocket::Ask(path, text, kLongest, kLong), "done\n");
}

TEST_F(LocalSockets, WithNobodyThereAnswerNothing) { EXPECT_EQ(Ask(), std::nullopt); }

} // namespace

} // namespace tessa
