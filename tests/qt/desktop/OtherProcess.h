#pragma once
#include <QCoreApplication>
#include <QProcess>
#include <QString>

#include <csignal>
#include <iostream>

namespace tessa::qt {

/// Another process that plays one of the roles of the same test program, on the same folder. A role is a disabled test
/// of the suite "Role"; it prints numbers and may read some.
class OtherProcess {
public:
    OtherProcess(const char* role, const QString& folder, const QString& name = {}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ROLE_FOLDER"), folder);
        environment.insert(QStringLiteral("ROLE_NAME"), name);
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("--gtest_also_run_disabled_tests"), QStringLiteral("--gtest_brief=1"),
                         QStringLiteral("--gtest_filter=Role.DISABLED_%1").arg(QLatin1String(role))});
    }

    void Tell(int number) { m_process.write(QByteArray::number(number) + '\n'); }
    /// The number on its next line; waits for it.
    int Answer() {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(kPatienceMs)) return -1;
        }
        return m_process.readLine().trimmed().toInt();
    }
    /// Ends it at once, as a crash would.
    void Kill() {
        m_process.kill();
        m_process.waitForFinished(kPatienceMs);
    }
    void Signal(int signal) { ::kill(static_cast<pid_t>(m_process.processId()), signal); }
    [[nodiscard]] qint64 Id() const { return m_process.processId(); }
    bool Succeeds() {
        m_process.closeWriteChannel();
        return m_process.waitForFinished(kPatienceMs) && m_process.exitStatus() == QProcess::NormalExit &&
               m_process.exitCode() == 0;
    }

private:
    static constexpr int kPatienceMs = 60000;
    QProcess m_process;
};

// For the roles themselves.

inline QString RoleFolder() { return qEnvironmentVariable("ROLE_FOLDER"); }

inline void Print(int number) { std::cout << number << std::endl; }

} // namespace tessa::qt
