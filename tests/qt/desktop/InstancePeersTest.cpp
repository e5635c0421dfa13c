#include "tests/qt/desktop/InstanceDesk.h"
#include "tests/qt/desktop/OtherProcess.h"

#include <QLocalServer>
#include <QLocalSocket>

#include <array>
#include <cstring>
#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace tessa::qt {

// Whoever may connect to an instance, and whatever may answer one.

namespace {

constexpr uid_t kNobody = 65534;

/// A peer that connects to the socket and says something. It hears what is answered until it is cut off.
class Peer {
public:
    explicit Peer(const QString& socket, const QByteArray& says = {}) {
        m_socket.connectToServer(socket);
        EXPECT_TRUE(m_socket.waitForConnected());
        m_socket.write(says);
        m_socket.flush();
    }
    [[nodiscard]] bool IsCutOff() const { return m_socket.state() == QLocalSocket::UnconnectedState; }
    /// All that it heard; waits until it is cut off.
    QByteArray Heard() {
        EXPECT_TRUE(WaitUntil([this] { return IsCutOff(); }));
        return m_socket.readAll();
    }
    void GoAway() { m_socket.abort(); }

private:
    QLocalSocket m_socket;
};

class InstancePeersTest : public InstanceDesk {
protected:
    SocketInstanceChannel m_first{m_state.path()};

    void ExpectAlive() {
        const int before = m_messages;
        const Start later = LaterStart();
        EXPECT_TRUE(later.running);
        EXPECT_EQ(later.message, Outcome::Done);
        EXPECT_EQ(m_messages, before + 1);
    }
};

TEST_F(InstancePeersTest, GarbageIsCutOffWithoutAnAnswer) {
    Run(m_first);
    QByteArray everyByte;
    for (int byte = 0; byte < 256; ++byte) everyByte += static_cast<char>(byte);
    for (const QByteArray& garbage : {QByteArray("\n"), QByteArray("nonsense\n"), QByteArray("messages\n"),
                                      QByteArray("message\n"), QByteArray("message x\n"), QByteArray("foregroundx\n"),
                                      QByteArray("\0message 0\n", 11), everyByte + "\n", QByteArray("MESSAGE 0\n")}) {
        EXPECT_EQ(Peer(Socket(), garbage).Heard(), QByteArray()) << garbage.toHex().toStdString();
    }
    EXPECT_EQ(m_messages, 0);
    EXPECT_TRUE(m_tokens.isEmpty());
    ExpectAlive();
}

TEST_F(InstancePeersTest, OneLineAConnectionIsTaken) {
    Run(m_first);
    EXPECT_EQ(Peer(Socket(), "message 3\nonemessage 0\nmessage 0\n").Heard(), "done\n");
    EXPECT_EQ(m_texts, std::vector<Text>{u"one"});
}

TEST_F(InstancePeersTest, ALineThatNeverEndsIsCutOff) {
    Run(m_first);
    for (const int size : {4096, 4097, 1000000}) {
        EXPECT_EQ(Peer(Socket(), QByteArray(size, 'm')).Heard(), QByteArray()) << size;
    }
    EXPECT_EQ(m_messages, 0);
    ExpectAlive();
}

TEST_F(InstancePeersTest, ALineInPiecesIsOneLine) {
    Run(m_first);
    Peer peer(Socket(), "mess");
    Peer other(Socket(), "message 0\n");
    EXPECT_EQ(other.Heard(), "done\n") << "nobody waits for the slow one";
    EXPECT_FALSE(peer.IsCutOff());
    EXPECT_EQ(m_messages, 1);
}

TEST_F(InstancePeersTest, SilentPeersHoldUpNobody) {
    Run(m_first);
    std::vector<std::unique_ptr<Peer>> silent;
    for (int each = 0; each < 45; ++each) silent.push_back(std::make_unique<Peer>(Socket()));
    ExpectAlive();
    for (const auto& each : silent) EXPECT_FALSE(each->IsCutOff());
}

TEST_F(InstancePeersTest, SilentPeersAreCutOffAfterAWhile) {
    SocketInstanceChannel impatient(m_state.path(), 50);
    Run(impatient);
    Peer silent(Socket()), halting(Socket(), "messa");
    EXPECT_EQ(silent.Heard(), QByteArray());
    EXPECT_EQ(halting.Heard(), QByteArray());
    EXPECT_EQ(m_messages, 0);
}

TEST_F(InstancePeersTest, APeerThatDoesNotWaitForItsAnswerIsHandledAllTheSame) {
    Run(m_first);
    { const Peer hasty(Socket(), "message 3\nabc"); }
    EXPECT_TRUE(WaitUntil([this] { return m_messages == 1; }));
    ExpectAlive();
}

TEST_F(InstancePeersTest, APeerMayGoAwayWhileItsMessageIsHandled) {
    Run(m_first);
    Peer peer(Socket(), "message 0\n");
    bool went = false;
    Connection going = m_first.Message.Connect([&](const Text&) {
        // As while a message box asks the user.
        peer.GoAway();
        for (int turn = 0; turn < 20; ++turn) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        went = true;
    });
    EXPECT_TRUE(WaitUntil([&] { return went; }));
    going.End();
    ExpectAlive();
}

TEST_F(InstancePeersTest, AnInstanceThatHangsIsGivenUpButStillIsOne) {
    OtherProcess hanging("Run", m_state.path());
    ASSERT_EQ(hanging.Answer(), 0);
    hanging.Signal(SIGSTOP);
    const Start later = LaterStart(200);
    EXPECT_TRUE(later.running);
    EXPECT_EQ(later.foreground, Outcome::Failed);
    EXPECT_EQ(later.message, Outcome::Failed);

    std::vector<std::unique_ptr<QLocalSocket>> queue;
    do {
        queue.push_back(std::make_unique<QLocalSocket>());
        queue.back()->connectToServer(Socket());
    } while (queue.size() < 200 && queue.back()->state() == QLocalSocket::ConnectedState);
    ASSERT_EQ(queue.back()->state(), QLocalSocket::ConnectingState) << "nobody is kept waiting";
    EXPECT_TRUE(LaterStart(200).running) << "not even when more wait than it lets in";
    queue.clear();

    hanging.Signal(SIGCONT);
    EXPECT_EQ(LaterStart().message, Outcome::Done);
    hanging.Kill();
}

TEST_F(InstancePeersTest, WhatAnswersOtherwiseHasNotAnswered) {
    QString name;
    {
        SocketInstanceChannel known(m_state.path());
        Run(known);
        name = Socket();
    }
    QByteArray answer;
    QLocalServer strange;
    QObject::connect(&strange, &QLocalServer::newConnection, &strange, [&] {
        auto* peer = strange.nextPendingConnection();
        QObject::connect(peer, &QLocalSocket::readyRead, peer, [&answer, peer] {
            peer->write(answer);
            peer->flush();
            if (answer.isEmpty()) peer->abort();
        });
    });
    ASSERT_TRUE(strange.listen(name));
    for (const QByteArray& each : {QByteArray(), QByteArray("nonsense\n"), QByteArray("done"), QByteArray("\n"),
                                   QByteArray(5000000, 'd'), QByteArray("donedone\n")}) {
        answer = each;
        const Start later = LaterStart(500);
        EXPECT_TRUE(later.running);
        EXPECT_EQ(later.foreground, Outcome::Failed) << each.left(20).toStdString();
        EXPECT_EQ(later.message, Outcome::Failed);
    }
    answer = "done\n";
    EXPECT_EQ(LaterStart().message, Outcome::Done);
}

// Other users. Only root can play one.

sockaddr_un AddressOf(const QString& socket) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(static_cast<char*>(address.sun_path), QFile::encodeName(socket).constData(),
                 sizeof address.sun_path - 1);
    return address;
}

/// Connects as another user and hands something over; how many bytes came back, -1 when it was not let in.
int AskAsNobody(const QString& socket) {
    const sockaddr_un address = AddressOf(socket);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0) ::_exit(99);
        const int peer = ::socket(AF_UNIX, SOCK_STREAM, 0);
        if (::connect(peer, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) ::_exit(100);
        std::array<char, 16> answer{};
        const bool said = ::send(peer, "message 0\n", 10, MSG_NOSIGNAL) == 10;
        const auto heard = said ? ::read(peer, answer.data(), answer.size()) : 0;
        ::_exit(heard > 0 ? static_cast<int>(heard) : 0);
    }
    int status = 0;
    EXPECT_TRUE(WaitUntil([&] { return ::waitpid(child, &status, WNOHANG) == child; }));
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 99);
    return WEXITSTATUS(status) == 100 ? -1 : WEXITSTATUS(status);
}

TEST_F(InstancePeersTest, AnotherUserIsNotLetInAndNotHeardEvenIfTheSocketStandsOpen) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can play another user";
    Run(m_first);
    ASSERT_EQ(::chmod(QFile::encodeName(m_runtime.path()).constData(), 0711), 0);
    EXPECT_EQ(AskAsNobody(Socket()), -1);
    ASSERT_EQ(::chmod(QFile::encodeName(Socket()).constData(), 0666), 0);
    EXPECT_EQ(AskAsNobody(Socket()), 0);
    EXPECT_EQ(m_messages, 0);
    ExpectAlive();
}

TEST_F(InstancePeersTest, AnotherUsersProgramIsNoInstanceOfOurs) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can play another user";
    QString name;
    {
        SocketInstanceChannel known(m_state.path());
        Run(known);
        name = Socket();
    }
    std::array<int, 2> ready{};
    ASSERT_EQ(::pipe(ready.data()), 0);
    const sockaddr_un address = AddressOf(name.left(name.lastIndexOf(u'-')) + QStringLiteral("-1.socket"));
    const pid_t child = ::fork();
    if (child == 0) {
        const int server = ::socket(AF_UNIX, SOCK_STREAM, 0);
        const bool listens = ::bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
                             ::setuid(kNobody) == 0 && ::listen(server, 5) == 0;
        if (!listens || ::write(ready[1], "x", 1) != 1) ::_exit(1);
        for (;;) ::pause();
    }
    ::close(ready[1]);
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1) << "the other user does not listen";
    ::close(ready[0]);
    Run(m_first);
    ExpectAlive();
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

// An instance in a process of its own, until it is killed.
TEST(Role, DISABLED_Run) {
    SocketInstanceChannel channel(RoleFolder());
    ASSERT_EQ(channel.RegisterMessage(kName), Outcome::Done);
    Print(channel.PreviousInstance(Instances::One));
    for (;;) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

} // namespace tessa::qt
