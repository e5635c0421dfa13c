#include "qt/desktop/DiskSessionFiles.h"
#include "qt/base/Strings.h"
#include "tests/fakes/FullDisk.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <iostream>

namespace tessa::qt {

namespace {

class DiskSessionFilesTest : public testing::Test {
protected:
    QTemporaryDir m_home;
    QString m_folder = m_home.path() + QStringLiteral("/a/sessions");

    void Put(const QString& name, const QByteArray& bytes) {
        ASSERT_TRUE(QDir().mkpath(m_folder));
        QFile file(m_folder + QLatin1Char('/') + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    /// How a write went, once that is known.
    static Outcome Wait(const std::function<void(SessionFiles::Written)>& write) {
        std::optional<Outcome> outcome;
        write([&](Outcome told) { outcome = told; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return outcome.has_value(); }, 60000));
        return outcome.value_or(Outcome::Failed);
    }
    static Outcome Own(DiskSessionFiles& files, const std::string& bytes) {
        return Wait([&](SessionFiles::Written done) { files.WriteOwn(bytes, std::move(done)); });
    }
    static Outcome Rewrite(DiskSessionFiles& files, TextView id, const std::string& bytes) {
        return Wait([&](SessionFiles::Written done) { files.Rewrite(id, bytes, std::move(done)); });
    }
    [[nodiscard]] QStringList Files() const { return QDir(m_folder).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    [[nodiscard]] std::string Earlier(DiskSessionFiles& files) const {
        std::string all;
        for (const KeptSession& kept : files.Earlier()) all += (all.empty() ? "" : " ") + kept.Bytes;
        return all;
    }
};

TEST_F(DiskSessionFilesTest, NothingIsMadeBeforeSomethingIsWritten) {
    DiskSessionFiles files(m_folder);
    EXPECT_TRUE(files.Earlier().empty());
    EXPECT_EQ(Own(files, {}), Outcome::Done);
    EXPECT_FALSE(QFileInfo::exists(m_folder));
}

TEST_F(DiskSessionFilesTest, WhatWasWrittenLastIsOnDiskWhenTheObjectEnds) {
    {
        DiskSessionFiles files(m_folder);
        for (int i = 0; i < 50; ++i) files.WriteOwn("state " + std::to_string(i), [](Outcome) {});
        EXPECT_TRUE(files.Earlier().empty()) << "the session that runs is not an earlier one";
    }
    ASSERT_EQ(Files().size(), 1) << Files().join(u' ').toStdString();
    QFile file(m_folder + QLatin1Char('/') + Files().constFirst());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "state 49");
    EXPECT_EQ(int(QFileInfo(m_folder).permissions()) & 0x0077, 0) << "what somebody reads is nobody else's business";
}

TEST_F(DiskSessionFilesTest, NoBytesRemoveTheSession) {
    {
        DiskSessionFiles files(m_folder);
        EXPECT_EQ(Own(files, "state"), Outcome::Done);
        EXPECT_EQ(Own(files, {}), Outcome::Done);
    }
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(DiskSessionFilesTest, TheLastTenAreKeptNewestFirst) {
    for (int i = 10; i < 23; ++i) Put(QStringLiteral("000000000000%1-7.session").arg(i), QByteArray::number(i));
    Put(QStringLiteral("00000000000010-7.session.lock"), {});
    Put(QStringLiteral("notes.txt"), "mine");
    DiskSessionFiles files(m_folder);
    EXPECT_EQ(Earlier(files), "22 21 20 19 18 17 16 15 14 13");
    EXPECT_EQ(Files().size(), 11);
    EXPECT_TRUE(Files().contains(QStringLiteral("notes.txt")));
}

TEST_F(DiskSessionFilesTest, TheNewestStaysTheNewestWhenTheClockIsSetBack) {
    for (int i = 10; i < 20; ++i) Put(QStringLiteral("900000000000%1-7.session").arg(i), QByteArray::number(i));
    for (const char* bytes : {"first", "second"}) {
        DiskSessionFiles files(m_folder);
        EXPECT_EQ(Own(files, bytes), Outcome::Done);
    }
    DiskSessionFiles files(m_folder);
    EXPECT_EQ(Earlier(files), "second first 19 18 17 16 15 14 13 12");
}

TEST_F(DiskSessionFilesTest, ANameThatIsNoTimeDoesNotLeadTheOthersAstray) {
    for (const char* name : {"99999999999999-7.session", "1234567890123456789-7.session", "x-7.session", ".session"})
        Put(QLatin1String(name), "odd");
    DiskSessionFiles files(m_folder);
    EXPECT_EQ(Own(files, "own"), Outcome::Done);
    const QStringList own = Files().filter(QString::number(QCoreApplication::applicationPid()));
    ASSERT_EQ(own.size(), 2) << "the session and its lock";
    EXPECT_EQ(own.constFirst().indexOf(u'-'), 14) << own.constFirst().toStdString();
}

TEST_F(DiskSessionFilesTest, AnEarlierSessionIsRewrittenAndRemoved) {
    Put(QStringLiteral("1-1.session"), "old");
    DiskSessionFiles files(m_folder);
    EXPECT_EQ(Rewrite(files, u"1-1.session", "new"), Outcome::Done);
    EXPECT_EQ(Earlier(files), "new");
    EXPECT_EQ(Rewrite(files, u"1-1.session", {}), Outcome::Done);
    EXPECT_EQ(Earlier(files), "");
    EXPECT_EQ(Rewrite(files, u"1-1.session", "again"), Outcome::Failed);
    EXPECT_EQ(Rewrite(files, u"../1-1.session", "outside"), Outcome::Failed);
}

TEST_F(DiskSessionFilesTest, AFolderThatCannotBeMadeIsReported) {
    QFile blocking(m_home.path() + QStringLiteral("/a"));
    ASSERT_TRUE(blocking.open(QIODevice::WriteOnly));
    DiskSessionFiles files(m_folder);
    EXPECT_EQ(Own(files, "state"), Outcome::Failed);
    EXPECT_TRUE(files.Earlier().empty());
}

TEST_F(DiskSessionFilesTest, ADiskThatFillsUpIsReportedForEachWriteThatFails) {
    DiskSessionFiles files(m_folder);
    EXPECT_EQ(Own(files, "state one"), Outcome::Done);
    {
        const FullDisk full;
        EXPECT_EQ(Own(files, "state two"), Outcome::Failed);
        EXPECT_EQ(Own(files, "state three"), Outcome::Failed);
    }
    EXPECT_EQ(Files().size(), 2) << "the lock, the old state, and nothing half written";
    EXPECT_EQ(Own(files, "state four"), Outcome::Done);
}

/// Another program that has its session written and then lives on.
class OtherProgram {
public:
    explicit OtherProgram(const QString& folder) {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ROLE_FOLDER"), folder);
        m_process.setProcessEnvironment(environment);
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("--gtest_also_run_disabled_tests"), QStringLiteral("--gtest_brief=1"),
                         QStringLiteral("--gtest_filter=Role.DISABLED_WriteAndStay")});
        while (!m_process.readLine().contains("written")) {
            if (!m_process.canReadLine() && !m_process.waitForReadyRead(60000)) break;
        }
    }
    void Kill() {
        m_process.kill();
        m_process.waitForFinished(60000);
    }

private:
    QProcess m_process;
};

TEST_F(DiskSessionFilesTest, AnotherProgramsSessionIsAnEarlierOneOnceItHasEnded) {
    OtherProgram other(m_folder);
    DiskSessionFiles files(m_folder);
    ASSERT_FALSE(Files().isEmpty());
    EXPECT_EQ(Earlier(files), "");
    other.Kill();
    EXPECT_EQ(Earlier(files), "of another");
}

// What the other program does, alone in a process of its own.
TEST(Role, DISABLED_WriteAndStay) {
    DiskSessionFiles files(qEnvironmentVariable("ROLE_FOLDER"));
    files.WriteOwn("of another", [](Outcome) {});
    ASSERT_TRUE(files.Earlier().empty()); // waits until it is written
    std::cout << "written" << std::endl;
    for (std::string line; std::getline(std::cin, line);) {}
}

} // namespace

} // namespace tessa::qt
