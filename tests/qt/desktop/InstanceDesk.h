#pragma once
#include "qt/desktop/SocketInstanceChannel.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace tessa::qt {

inline const Text kName = u"TEST";

/// Lets events run until the condition holds; false when it did not within a minute.
inline bool WaitUntil(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(60000);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(1);
    }
    return true;
}

/// How a later start fared, step by step as the program's start takes them.
struct Start {
    bool running = false;
    Outcome foreground = Outcome::Failed, message = Outcome::Failed;
};

inline Start StartIn(const QString& stateFolder, int patience = 10000, const Text& text = u"http://a.example/") {
    SocketInstanceChannel channel(stateFolder, patience);
    EXPECT_EQ(channel.RegisterMessage(kName), Outcome::Done);
    Start start;
    start.running = channel.PreviousInstance(Instances::One);
    start.foreground = channel.SetForegroundWindow();
    start.message = channel.SendMessage(text);
    return start;
}

/// The desktop's folder for sockets and the state folder of a first start.
class InstanceDesk : public testing::Test {
protected:
    InstanceDesk() { qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_runtime.path())); }

    /// Makes `channel` the running instance.
    void Run(SocketInstanceChannel& channel) {
        ASSERT_EQ(channel.RegisterMessage(kName), Outcome::Done);
        ASSERT_FALSE(channel.PreviousInstance(Instances::One));
        m_listening += channel.Message.Connect([this](const Text& text) {
            ++m_messages;
            m_texts.push_back(text);
        });
        m_listening += channel.Foreground.Connect([this](const QByteArray& token) { m_tokens << token; });
    }
    /// A later start, while the events of this process go on.
    Start LaterStart(int patience = 10000, const Text& text = u"http://a.example/") {
        Start start;
        const std::unique_ptr<QThread> thread(
            QThread::create([&] { start = StartIn(m_state.path(), patience, text); }));
        thread->start();
        EXPECT_TRUE(WaitUntil([&] { return thread->isFinished(); }));
        thread->wait();
        return start;
    }
    [[nodiscard]] static QStringList FilesOf(const QString& folder) {
        return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    /// The sockets of the folder, whoever left them.
    [[nodiscard]] static QStringList SocketsOf(const QString& folder) {
        return FilesOf(folder).filter(QStringLiteral(".socket"));
    }
    /// The path of the first socket in the desktop's folder.
    [[nodiscard]] QString Socket() const {
        return m_runtime.path() + QLatin1Char('/') + SocketsOf(m_runtime.path()).value(0);
    }

    QTemporaryDir m_runtime, m_state;
    int m_messages = 0;
    std::vector<Text> m_texts; ///< what the messages handed over
    QByteArrayList m_tokens;
    Connections m_listening; ///< to the running instance
};

} // namespace tessa::qt
