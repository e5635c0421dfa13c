#include "qt/desktop/InstanceProfile.h"

#include "tests/qt/desktop/OtherProcess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace tessa::qt {

namespace {

/// What another instance is told, by number.
enum ToldInstance { kTake = 1, kLeave, kEnd };

class InstanceProfileTest : public testing::Test {
protected:
    [[nodiscard]] QString Path(const char* name) const { return m_home.filePath(QLatin1String(name)); }
    [[nodiscard]] InstanceProfile Instance() const { return {Path("engine"), Path("cache")}; }
    [[nodiscard]] std::unique_ptr<OtherProcess> Other() const {
        return std::make_unique<OtherProcess>("HoldProfile", m_home.path());
    }
    static int Ask(OtherProcess& other, ToldInstance what) {
        other.Tell(what);
        return other.Answer();
    }
    /// The number that one more instance of this process has.
    [[nodiscard]] int Next() const {
        auto instance = Instance();
        instance.Take();
        return instance.Number();
    }
    void Put(const char* name) const {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
    }

    QTemporaryDir m_home;
};

TEST_F(InstanceProfileTest, NothingIsTakenBeforeItIsNeeded) {
    const auto instance = Instance();
    EXPECT_EQ(instance.Number(), 0);
    EXPECT_EQ(instance.Folder(), QString());
    EXPECT_FALSE(QFile::exists(Path("engine")));
}

TEST_F(InstanceProfileTest, EachInstanceHasTheLowestThatIsFree) {
    auto first = Instance();
    first.Take();
    EXPECT_EQ(first.Folder(), Path("engine"));
    EXPECT_EQ(first.CacheFolder(), Path("cache"));
    auto second = std::make_unique<InstanceProfile>(Instance());
    second->Take();
    EXPECT_EQ(second->Folder(), Path("engine-2"));
    EXPECT_EQ(second->CacheFolder(), Path("cache/engine-2"));
    auto third = Instance();
    third.Take();
    EXPECT_EQ(third.Number(), 3);
    second->Take();
    EXPECT_EQ(second->Number(), 2) << "it has one already";
    second.reset();
    EXPECT_EQ(Next(), 2);
    EXPECT_EQ(third.Number(), 3);
}

TEST_F(InstanceProfileTest, ItsFolderIsTheUsersAlone) {
    auto first = Instance(), second = Instance();
    first.Take();
    second.Take();
    for (const char* name : {"engine", "engine-2"}) {
        struct stat facts {};
        ASSERT_EQ(::stat(qPrintable(Path(name)), &facts), 0);
        EXPECT_EQ(facts.st_mode & 0777, 0700U) << name;
    }
}

TEST_F(InstanceProfileTest, AFileOfALockHoldsNothing) {
    ASSERT_TRUE(QDir().mkpath(Path("engine")));
    Put("engine/lock");
    Put("engine/ending");
    EXPECT_EQ(Next(), 1);
    EXPECT_FALSE(QFile::exists(Path("engine/ending"))) << "the one before has ended";
}

TEST_F(InstanceProfileTest, WhereNoFolderCanBeMadeThereIsNone) {
    Put("engine");
    auto instance = Instance();
    instance.Take();
    instance.Leave();
    EXPECT_EQ(instance.Number(), 0);
    EXPECT_EQ(instance.Folder(), QString());
    EXPECT_EQ(instance.CacheFolder(), QString());
    EXPECT_FALSE(QFile::exists(Path("engine-2")));
    InstanceProfile nowhere({}, {});
    nowhere.Take();
    EXPECT_EQ(nowhere.Number(), 0);
}

TEST_F(InstanceProfileTest, ASecondOneWithoutAFolderHasNone) {
    Put("engine-2");
    auto first = Instance();
    first.Take();
    EXPECT_EQ(Next(), 0);
}

TEST_F(InstanceProfileTest, AKilledInstanceHoldsNothing) {
    const auto other = Other();
    EXPECT_EQ(Ask(*other, kTake), 1);
    EXPECT_EQ(Next(), 2);
    other->Kill();
    EXPECT_EQ(Next(), 1);
}

TEST_F(InstanceProfileTest, StartsAtTheSameMomentHaveDifferentOnes) {
    std::array<std::unique_ptr<OtherProcess>, 4> others;
    for (auto& each : others) each = Other();
    for (int round = 0; round < 20; ++round) {
        for (auto& each : others) each->Tell(kTake);
        std::vector<int> numbers;
        for (auto& each : others) numbers.push_back(each->Answer());
        std::ranges::sort(numbers);
        EXPECT_EQ(numbers, (std::vector{1, 2, 3, 4})) << "in round " << round;
        for (auto& each : others) ASSERT_EQ(Ask(*each, kEnd), 0);
    }
    for (auto& each : others) EXPECT_TRUE(each->Succeeds());
}

/// Counts how often a file is opened.
class Openings {
public:
    explicit Openings(const QString& file) { ::inotify_add_watch(m_descriptor, qPrintable(file), IN_OPEN); }
    ~Openings() { ::close(m_descriptor); }
    Openings(const Openings&) = delete;
    Openings& operator=(const Openings&) = delete;
    /// Waits for the next one.
    bool Next() const {
        alignas(inotify_event) std::array<char, sizeof(inotify_event)> event{};
        return ::read(m_descriptor, event.data(), event.size()) > 0;
    }

private:
    int m_descriptor = ::inotify_init1(IN_CLOEXEC);
};

TEST_F(InstanceProfileTest, WhoStartsWhileTheOneBeforeEndsWaitsForItsProfile) {
    const auto other = Other();
    ASSERT_EQ(Ask(*other, kTake), 1);
    ASSERT_EQ(Ask(*other, kLeave), 1);
    const Openings tries(Path("engine/lock"));
    auto instance = Instance();
    const std::unique_ptr<QThread> start(QThread::create([&] { instance.Take(); }));
    start->start();
    EXPECT_TRUE(tries.Next());
    EXPECT_TRUE(tries.Next()) << "it was taken, and is tried again";
    other->Kill();
    start->wait();
    EXPECT_EQ(instance.Number(), 1);
    EXPECT_EQ(Next(), 2) << "the new one is not ending";
}

} // namespace

// The other process: an instance that does what it is told and answers with its number.
TEST(Role, DISABLED_HoldProfile) {
    std::unique_ptr<InstanceProfile> instance;
    for (int told = 0; std::cin >> told;) {
        if (told == kTake) {
            const QString home = RoleFolder();
            instance = std::make_unique<InstanceProfile>(home + QStringLiteral("/engine"), home);
            instance->Take();
        }
        if (told == kLeave) instance->Leave();
        if (told == kEnd) instance.reset();
        Print(instance ? instance->Number() : 0);
    }
}

} // namespace tessa::qt
