#include "base/os/LocalSocket.h"

#include "base/os/ProcessUse.h"
#include "base/os/windows/Handle.h"
#include "base/os/windows/WidePath.h"

#include <functional>
#include <gtest/gtest.h>
#include <thread>

namespace tessa {

namespace {

constexpr std::size_t kLongest = 16;
constexpr std::chrono::milliseconds kLong{60000};

/// A pipe that serves one connection as the test says, and then cuts it.
class PipeListener {
public:
    explicit PipeListener(const std::string& path)
        : m_pipe(::CreateNamedPipeW(Wide(path).c_str(), PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE | PIPE_READMODE_BYTE, 1,
                                    4096, 4096, 0, nullptr)) {
        EXPECT_TRUE(m_pipe.Open());
    }
    ~PipeListener() {
        if (m_thread.joinable()) m_thread.join();
    }
    void Serve(std::function<void(HANDLE pipe)> serve) {
        m_thread = std::thread([this, serve = std::move(serve)] {
            ::ConnectNamedPipe(m_pipe.Get(), nullptr);
            serve(m_pipe.Get());
            ::FlushFileBuffers(m_pipe.Get());
            ::DisconnectNamedPipe(m_pipe.Get());
        });
    }

private:
    const Handle m_pipe;
    std::thread m_thread;
};

void PipeSay(HANDLE pipe, const std::string& text) {
    DWORD written = 0;
    ::WriteFile(pipe, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

std::string PipeHear(HANDLE pipe, std::size_t size) {
    std::string heard(size, '\0');
    DWORD got = 0;
    ::ReadFile(pipe, heard.data(), static_cast<DWORD>(size), &got, nullptr);
    heard.resize(got);
    return heard;
}

class Pipes : public testing::Test {
protected:
    [[nodiscard]] std::optional<std::string> Ask(std::chrono::milliseconds patience = kLong) const {
        return LocalSocket::Ask(path, "hello", kLongest, patience);
    }
    const std::string path = "\\\\.\\pipe\\tessaview-test-" + std::to_string(ThisProcess());
};

TEST_F(Pipes, AreTakenForWhatTheyAre) {
    EXPECT_EQ(LocalSocket::Look(path), LocalSocket::Found::Foreign) << "there is none";
    const PipeListener listener(path);
    EXPECT_EQ(LocalSocket::Look(path), LocalSocket::Found::Listener);
}

TEST_F(Pipes, GiveTheLineThatIsAnsweredAndNothingBehindIt) {
    PipeListener listener(path);
    listener.Serve([](HANDLE pipe) {
        EXPECT_TRUE(LocalSocket::IsOurUser(reinterpret_cast<std::intptr_t>(pipe)));
        EXPECT_EQ(PipeHear(pipe, 5), "hello");
        PipeSay(pipe, "done\nmore");
    });
    EXPECT_EQ(Ask(), "done\n");
}

TEST_F(Pipes, AreLeftWhenTheLineIsTooLong) {
    PipeListener listener(path);
    listener.Serve([](HANDLE pipe) { PipeSay(pipe, std::string(kLongest, 'x') + "\n"); });
    EXPECT_EQ(Ask(), std::nullopt);
}

TEST_F(Pipes, AreLeftWhenTheySayNothing) {
    const PipeListener listener(path);
    EXPECT_EQ(Ask(std::chrono::milliseconds(20)), std::nullopt);
}

TEST_F(Pipes, WithNobodyThereAnswerNothing) { EXPECT_EQ(Ask(), std::nullopt); }

} // namespace

} // namespace tessa
