#include "qt/desktop/DiskSettingsStorage.h"
#include "qt/base/Strings.h"
#include "settings/SettingsStore.h"
#include "tests/fakes/FullDisk.h"
#include "tests/qt/desktop/OtherProcess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <iostream>
#include <sys/resource.h>

namespace tessa::qt {

namespace {

using List = std::vector<Text>;

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

class DiskSettingsStorageTest : public testing::Test {
protected:
    QTemporaryDir m_home;
    QString m_folder = m_home.path() + QStringLiteral("/a/b");
    QString m_file = m_folder + QStringLiteral("/settings.ini");
    DiskSettingsStorage m_settings{m_folder};
    QStringList m_said;

    void SetUp() override {
        m_settings.SetReport([this](const Text& message) { m_said << ToQt(message); });
    }
    [[nodiscard]] QString Files() const {
        return QDir(m_folder).entryList(QDir::Files | QDir::Hidden, QDir::Name).join(u' ');
    }
};

TEST_F(DiskSettingsStorageTest, ReadingMakesNoFile) {
    EXPECT_FALSE(m_settings.Open()->Read(u"TabsUp"));
    EXPECT_FALSE(m_settings.Open()->ReadList(u"LastSites"));
    EXPECT_FALSE(QFileInfo::exists(m_folder));
    EXPECT_TRUE(m_said.isEmpty());
}

TEST_F(DiskSettingsStorageTest, KeepsTextsAndListsForTheNextObject) {
    {
        const auto storage = m_settings.Open();
        EXPECT_EQ(storage->Write(u"TabsUp", u"true"), Outcome::Done);
        EXPECT_EQ(storage->WriteList(u"LastSites", {u"a", u"", u"b \"c\", \\d\n"}), Outcome::Done);
        EXPECT_EQ(storage->Read(u"TabsUp"), u"true");
        EXPECT_FALSE(QFileInfo::exists(m_file));
    }
    DiskSettingsStorage other(m_folder);
    EXPECT_EQ(other.Open()->Read(u"TabsUp"), u"true");
    EXPECT_EQ(other.Open()->ReadList(u"LastSites"), (List{u"a", u"", u"b \"c\", \\d\n"}));
    EXPECT_FALSE(other.Open()->ReadList(u"TabsUp"));
    EXPECT_FALSE(other.Open()->Read(u"LastSites"));
}

TEST_F(DiskSettingsStorageTest, KeepsListsAndTextsExactly) {
    Text odd{char16_t{0}, char16_t{0xD800}, u'x', char16_t{0xDC00}, char16_t{0xFEFF}, char16_t{0xFFFF}};
    for (const List& list : {List{}, List{u""}, List{u"one"}, List{u"", u""}, List{odd, u" a ", u"@Invalid()"}}) {
        EXPECT_EQ(m_settings.Open()->WriteList(u"L", list), Outcome::Done);
        EXPECT_EQ(m_settings.Open()->ReadList(u"L"), list);
    }
    EXPECT_EQ(m_settings.Open()->Write(u"T", odd), Outcome::Done);
    EXPECT_EQ(m_settings.Open()->Read(u"T"), odd);
}

TEST_F(DiskSettingsStorageTest, IsReadableByTheUserAlone) {
    ResumeNext(m_settings.Open()->Write(u"A", u"1"));
    const auto mode = [](const QString& path) { return int(QFileInfo(path).permissions()) & 0x0FFF; };
    EXPECT_EQ(mode(m_file) & 0x0077, 0);
    EXPECT_EQ(mode(m_folder) & 0x0077, 0);
    QFile::setPermissions(m_file, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadOther);
    ResumeNext(m_settings.Open()->Write(u"A", u"2"));
    EXPECT_EQ(mode(m_file) & 0x0077, 0);
}

TEST_F(DiskSettingsStorageTest, LeavesNothingButItsFileAndItsLock) {
    ResumeNext(m_settings.Open()->Write(u"A", u"1"));
    WriteFile(m_folder + QStringLiteral("/.settings.ini.tessaview-abcdef"), "half written by a killed process");
    ResumeNext(m_settings.Open()->Write(u"A", u"2"));
    EXPECT_EQ(Files(), QStringLiteral("settings.ini settings.ini.lock"));
}

TEST_F(DiskSettingsStorageTest, MergesWhatTwoObjectsWrote) {
    ResumeNext(m_settings.Open()->Write(u"Untouched", u"yes"));
    {
        const auto first = m_settings.Open();
        const auto second = m_settings.Open();
        ResumeNext(first->Write(u"A", u"1"));
        ResumeNext(second->Write(u"B", u"2"));
    }
    EXPECT_EQ(FileBytes(m_file), "[General]\nA=1\nB=2\nUntouched=yes\n");
}

TEST_F(DiskSettingsStorageTest, FollowsALinkToTheFile) {
    const QString real = m_home.path() + QStringLiteral("/real.ini");
    WriteFile(real, "A=1\n");
    ASSERT_TRUE(QDir().mkpath(m_folder));
    ASSERT_TRUE(QFile::link(real, m_file));
    ResumeNext(m_settings.Open()->Write(u"B", u"2"));
    EXPECT_EQ(FileBytes(real), "[General]\nA=1\nB=2\n");
    EXPECT_TRUE(QFileInfo(m_file).isSymLink());
}

TEST_F(DiskSettingsStorageTest, KeepsADamagedFileAsideAndSaysSoOnce) {
    ASSERT_TRUE(QDir().mkpath(m_folder));
    WriteFile(m_file + QStringLiteral(".damaged-1"), "earlier");
    WriteFile(m_file, "A=1\n\xFF\xFE\0\0");
    EXPECT_FALSE(m_settings.Open()->Read(u"A"));
    EXPECT_FALSE(m_settings.Open()->Read(u"A"));
    EXPECT_EQ(FileBytes(m_file + QStringLiteral(".damaged-1")), "earlier");
    EXPECT_EQ(FileBytes(m_file + QStringLiteral(".damaged-2")), QByteArray("A=1\n\xFF\xFE\0\0"));
    ASSERT_EQ(m_said.size(), 1);
    EXPECT_TRUE(m_said[0].contains(QStringLiteral("settings.ini.damaged-2"))) << m_said[0].toStdString();
    ResumeNext(m_settings.Open()->Write(u"A", u"2"));
    EXPECT_EQ(m_settings.Open()->Read(u"A"), u"2");
    EXPECT_EQ(m_said.size(), 1);
}

TEST_F(DiskSettingsStorageTest, KeepsAsideAFileThatIsDamagedWhileItIsInUse) {
    ResumeNext(m_settings.Open()->Write(u"A", u"1"));
    {
        const auto storage = m_settings.Open();
        ResumeNext(storage->Write(u"B", u"2"));
        WriteFile(m_file, "garbage");
    }
    EXPECT_EQ(FileBytes(m_file + QStringLiteral(".damaged-1")), "garbage");
    EXPECT_EQ(FileBytes(m_file), "[General]\nB=2\n");
    EXPECT_EQ(m_said.size(), 1);
}

TEST_F(DiskSettingsStorageTest, LeavesADamagedFileToWhoeverCanSaySo) {
    ASSERT_TRUE(QDir().mkpath(m_folder));
    WriteFile(m_file, "garbage");
    DiskSettingsStorage early(m_folder, DiskSettingsStorage::Damaged::LeftAlone);
    EXPECT_FALSE(early.Open()->Read(u"A"));
    { ResumeNext(early.Open()->Write(u"A", u"1")); }
    EXPECT_EQ(FileBytes(m_file), "garbage");
    EXPECT_FALSE(m_settings.Open()->Read(u"A"));
    EXPECT_EQ(FileBytes(m_file + QStringLiteral(".damaged-1")), "garbage");
    EXPECT_EQ(m_said.size(), 1);
}

TEST_F(DiskSettingsStorageTest, SaysWhatHappenedBeforeAnybodyListened) {
    ASSERT_TRUE(QDir().mkpath(m_folder));
    WriteFile(m_file, "garbage");
    DiskSettingsStorage early(m_folder);
    EXPECT_FALSE(early.Open()->Read(u"A"));
    int said = 0;
    early.SetReport([&](const Text&) { ++said; });
    EXPECT_EQ(said, 1);
    early.SetReport([&](const Text&) { ++said; });
    EXPECT_EQ(said, 1);
}

TEST_F(DiskSettingsStorageTest, FailsWhereThereCanBeNoFolder) {
    WriteFile(m_home.path() + QStringLiteral("/a"), "a file where the folder should be");
    {
        const auto storage = m_settings.Open();
        EXPECT_FALSE(storage->Read(u"A"));
        EXPECT_EQ(storage->Write(u"A", u"1"), Outcome::Failed);
        EXPECT_EQ(storage->WriteList(u"L", {u"1"}), Outcome::Failed);
        EXPECT_FALSE(storage->Read(u"A"));
    }
    EXPECT_EQ(m_said, QStringList(QStringLiteral("The settings could not be saved.")));
}

TEST_F(DiskSettingsStorageTest, TriesToSaveWithoutChangingAnything) {
    ResumeNext(m_settings.Open()->Write(u"A", u"1"));
    const QByteArray before = FileBytes(m_file);
    m_settings.TrySaving();
    EXPECT_TRUE(m_said.isEmpty());
    {
        const FullDisk full;
        m_settings.TrySaving();
        m_settings.TrySaving();
    }
    EXPECT_EQ(m_said, QStringList(QStringLiteral("The settings could not be saved.")));
    EXPECT_EQ(FileBytes(m_file), before);
    EXPECT_EQ(Files(), QStringLiteral("settings.ini settings.ini.lock"));
}

TEST_F(DiskSettingsStorageTest, NeverReplacesWhatItCannotRead) {
    ASSERT_TRUE(QDir().mkpath(m_file + QStringLiteral("/x")));
    EXPECT_FALSE(m_settings.Open()->Read(u"A"));
    { ResumeNext(m_settings.Open()->Write(u"A", u"1")); }
    EXPECT_TRUE(QFileInfo(m_file + QStringLiteral("/x")).isDir());
    EXPECT_EQ(m_said, (QStringList{QStringLiteral("The settings could not be read."),
                                   QStringLiteral("The settings could not be saved.")}));
}

TEST_F(DiskSettingsStorageTest, AFullDiskFailsTheWriteAndLeavesTheOldFile) {
    ResumeNext(m_settings.Open()->Write(u"A", u"1"));
    const QByteArray before = FileBytes(m_file);
    Outcome outcome = Outcome::Done;
    {
        const FullDisk full;
        outcome = m_settings.Open()->Write(u"A", u"2");
    }
    EXPECT_EQ(outcome, Outcome::Failed);
    EXPECT_EQ(FileBytes(m_file), before);
    EXPECT_EQ(m_said, QStringList(QStringLiteral("The settings could not be saved.")));
    EXPECT_EQ(m_settings.Open()->Write(u"A", u"3"), Outcome::Done);
    EXPECT_EQ(m_settings.Open()->Read(u"A"), u"3");
}

TEST_F(DiskSettingsStorageTest, ADiskThatFillsUpBeforeTheReleaseLeavesTheOldFileAndSaysSo) {
    ResumeNext(m_settings.Open()->Write(u"A", u"1"));
    const QByteArray before = FileBytes(m_file);
    {
        auto storage = m_settings.Open();
        EXPECT_EQ(storage->Write(u"A", u"2"), Outcome::Done);
        const FullDisk full;
        storage.reset();
    }
    EXPECT_EQ(FileBytes(m_file), before);
    EXPECT_EQ(m_said, QStringList(QStringLiteral("The settings could not be saved.")));
    EXPECT_EQ(Files(), QStringLiteral("settings.ini settings.ini.lock"));
}

TEST_F(DiskSettingsStorageTest, TwoProcessesSeeEachOthersValuesAtOnce) {
    constexpr int kFirst = 10000; // all of one length: neither size nor the clock's tick tells them apart
    constexpr int kRounds = 300;
    OtherProcess other("Echo", m_folder);
    for (int number = kFirst; number < kFirst + kRounds; ++number) {
        {
            SettingsStore store(m_settings);
            ASSERT_EQ(store.TitleLengthLimit.Set(number), Outcome::Done);
        }
        other.Tell(number);
        ASSERT_EQ(other.Answer(), number);
        ASSERT_EQ(SettingsStore(m_settings).HandOffCommandLine.Get(), Decimal(number));
    }
    EXPECT_TRUE(other.Succeeds());
}

/// How often each of two processes writes; SETTINGS_WRITES says another number.
int Writes() {
    constexpr int kUsual = 200;
    return qEnvironmentVariableIsSet("SETTINGS_WRITES") ? qEnvironmentVariableIntValue("SETTINGS_WRITES") : kUsual;
}

TEST_F(DiskSettingsStorageTest, TwoProcessesThatWriteAtTheSameTimeLoseNothing) {
    OtherProcess first("Count", m_folder, QStringLiteral("First"));
    OtherProcess second("Count", m_folder, QStringLiteral("Second"));
    int reads = 0;
    for (int number = 1; number <= Writes(); ++number) {
        ASSERT_EQ(first.Answer(), number);
        ASSERT_EQ(second.Answer(), number);
        // Whoever looks in meanwhile finds a whole file, in which nothing that was written is missing.
        const auto values = ParseSettings(FileBytes(m_file).toStdString());
        ASSERT_TRUE(values) << FileBytes(m_file).toStdString();
        for (const TextView name : {u"First", u"Second"})
            ASSERT_GE(WholeNumber(std::get<Text>(values->find(name)->second)).value_or(0), number);
        ++reads;
    }
    EXPECT_TRUE(first.Succeeds());
    EXPECT_TRUE(second.Succeeds());
    EXPECT_EQ(m_settings.Open()->Read(u"First"), Decimal(Writes()));
    EXPECT_EQ(m_settings.Open()->Read(u"Second"), Decimal(Writes()));
    EXPECT_TRUE(m_said.isEmpty());
    EXPECT_EQ(Files(), QStringLiteral("settings.ini settings.ini.lock"));
    std::cout << "2 x " << Writes() << " writes, " << reads << " reads beside them, none damaged or lost" << std::endl;
}

TEST_F(DiskSettingsStorageTest, AListThatIsChangedIsTheOneOfTheMomentOfTheRelease) {
    ResumeNext(m_settings.Open()->WriteList(u"L", {u"a", u"b"}));
    {
        const auto first = m_settings.Open();
        ASSERT_EQ(first->ChangeList(u"L", [](List list) { return list.push_back(u"c"), list; }), Outcome::Done);
        EXPECT_EQ(first->ReadList(u"L"), (List{u"a", u"b", u"c"}));
        ASSERT_EQ(m_settings.Open()->WriteList(u"L", {u"b"}), Outcome::Done);
    }
    EXPECT_EQ(m_settings.Open()->ReadList(u"L"), (List{u"b", u"c"}));
    ASSERT_EQ(m_settings.Open()->ChangeList(u"New", [](const List& list) { return List{Decimal(int(list.size()))}; }),
              Outcome::Done);
    EXPECT_EQ(m_settings.Open()->ReadList(u"New"), List{u"0"});
    const FullDisk full;
    EXPECT_EQ(m_settings.Open()->ChangeList(u"L", [](List list) { return list; }), Outcome::Failed);
}

TEST_F(DiskSettingsStorageTest, TwoProcessesThatChangeOneListLoseNothing) {
    OtherProcess first("Add", m_folder, QStringLiteral("First"));
    OtherProcess second("Add", m_folder, QStringLiteral("Second"));
    EXPECT_TRUE(first.Succeeds());
    EXPECT_TRUE(second.Succeeds());
    EXPECT_EQ(m_settings.Open()->ReadList(u"L").value_or(List()).size(), 200U);
}

TEST_F(DiskSettingsStorageTest, AKilledProcessLeavesTheOldOrTheNewValuesAndHoldsUpNobody) {
    int last = 0;
    for (int round = 0; round < 40; ++round) {
        OtherProcess writer("WriteForEver", m_folder);
        // Another number of writes each time, so that the kill meets every step of a write.
        for (int written = 0; written <= round % 10; ++written) ASSERT_GE(writer.Answer(), 0);
        writer.Kill();
        const auto storage = m_settings.Open();
        const int now = WholeNumber(storage->Read(u"Number").value_or(u"")).value_or(-1);
        EXPECT_GT(now, last);
        last = now;
        EXPECT_EQ(storage->ReadList(u"Numbers"), List(100, Decimal(now)));
        ASSERT_EQ(storage->Write(u"Mine", Decimal(round)), Outcome::Done);
    }
    EXPECT_EQ(m_settings.Open()->Read(u"Mine"), u"39");
    EXPECT_TRUE(m_said.isEmpty());
    EXPECT_EQ(Files(), QStringLiteral("settings.ini settings.ini.lock"));
}

// What the other processes do; each runs alone in a process of its own.

TEST(Role, DISABLED_Echo) {
    DiskSettingsStorage settings(RoleFolder());
    for (int expected = 0; std::cin >> expected;) {
        const int seen = SettingsStore(settings).TitleLengthLimit.Get();
        ASSERT_EQ(SettingsStore(settings).HandOffCommandLine.Set(Decimal(seen)), Outcome::Done);
        Print(seen);
    }
}

TEST(Role, DISABLED_Count) {
    DiskSettingsStorage settings(RoleFolder());
    const Text name = FromQt(qEnvironmentVariable("ROLE_NAME"));
    for (int number = 1; number <= Writes(); ++number) {
        {
            const auto storage = settings.Open();
            ASSERT_EQ(storage->Read(name).value_or(u"0"), Decimal(number - 1));
            ASSERT_EQ(storage->Write(name, Decimal(number)), Outcome::Done);
        }
        Print(number);
    }
}

TEST(Role, DISABLED_Add) {
    DiskSettingsStorage settings(RoleFolder());
    const Text name = FromQt(qEnvironmentVariable("ROLE_NAME"));
    for (int number = 1; number <= 100; ++number) {
        ASSERT_EQ(settings.Open()->ChangeList(u"L", [&](List list) { return list.push_back(name), list; }),
                  Outcome::Done);
    }
}

TEST(Role, DISABLED_WriteForEver) {
    DiskSettingsStorage settings(RoleFolder());
    for (int number = WholeNumber(settings.Open()->Read(u"Number").value_or(u"")).value_or(0) + 1;; ++number) {
        {
            const auto storage = settings.Open();
            ASSERT_EQ(storage->Write(u"Number", Decimal(number)), Outcome::Done);
            ASSERT_EQ(storage->WriteList(u"Numbers", List(100, Decimal(number))), Outcome::Done);
        }
        Print(number);
    }
}

} // namespace

} // namespace tessa::qt
