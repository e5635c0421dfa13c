// Tests: MemoryTexts
#include "base/os/MemoryFiles.h"

#include "tests/fakes/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace tessa {

namespace {

constexpr std::int64_t kMegabyte = 1024 * 1024;

constexpr auto kMeminfo = "MemTotal:       24731700 kB\nMemFree:         4216084 kB\nMemAvailable:   23553540 kB\n"
                          "Buffers:          735192 kB\nCached:         18149340 kB\nSwapCached:            0 kB\n"
                          "HugePages_Total:       0\n";
constexpr MemoryRoom kMachine{24731700LL * 1024, 23553540LL * 1024, 0};
constexpr auto kPressure = "some avg10=12.34 avg60=5.00 avg300=1.10 total=22170881\n"
                           "full avg10=3.00 avg60=0.00 avg300=0.00 total=3363842\n";

std::string Meminfo(std::int64_t total, std::int64_t available) {
    return "MemTotal: " + std::to_string(total) + " kB\nMemAvailable: " + std::to_string(available) + " kB\n";
}

TEST(MemoryTexts, TheMachineIsWhatIsThereAndWhatProgramsCanStillHave) {
    EXPECT_EQ(MemoryTexts::Machine(kMeminfo), kMachine);
    EXPECT_EQ(MemoryTexts::Machine("MemTotal:\t8 kB\nMemAvailable:\t3 kB"), (MemoryRoom{8192, 3072, 0}));
    EXPECT_EQ(MemoryTexts::Machine(Meminfo(8, 9)), (MemoryRoom{8192, 8192, 0})) << "more than there is";
}

TEST(MemoryTexts, AnOldKernelsFreeMemoryIsEstimated) {
    EXPECT_EQ(MemoryTexts::Machine("MemTotal: 1000 kB\nMemFree: 100 kB\nCached: 400 kB\n"),
              (MemoryRoom{1000 * 1024, 300 * 1024, 0}));
    EXPECT_EQ(MemoryTexts::Machine("MemTotal: 1000 kB\n"), (MemoryRoom{1000 * 1024, 0, 0}));
}

TEST(MemoryTexts, OtherTextsAreNoMachine) {
    for (const char* text :
         {"", "\n\n", "MemTotal:", "MemTotal: kB", "MemTotal: -1 kB", "MemTotal: 0 kB", "Mem 5 kB",
          "MemTotal: 9223372036854775807 kB", "MemTotal: 99999999999999999999999 kB", "MemTotal: 1x"})
        EXPECT_EQ(MemoryTexts::Machine(text), std::nullopt) << text;
}

TEST(MemoryTexts, PressureIsTheTenSecondsInWhichSomethingWaited) {
    EXPECT_EQ(MemoryTexts::Pressure(kPressure), 12.34);
    EXPECT_EQ(MemoryTexts::Pressure("full avg10=3.00\nsome avg10=0.50 avg60=7"), 0.5);
    EXPECT_EQ(MemoryTexts::Pressure("some avg10=100.00 avg60=7"), 100);
}

TEST(MemoryTexts, OtherTextsAreNoPressure) {
    for (const char* text : {"", "some", "some avg10", "some avg10=", "some avg10=x", "some avg10=-1", "some avg10=nan",
                             "some avg10=inf", "some avg10=1e9", "some avg60=5", "full avg10=5", "some avg10=5x"})
        EXPECT_EQ(MemoryTexts::Pressure(text), 0) << text;
}

constexpr auto kOne = ControlGroup::Version::One, kTwo = ControlGroup::Version::Two;

TEST(MemoryTexts, GroupsOfEitherVersionAndOfBoth) {
    EXPECT_EQ(MemoryTexts::Groups("0::/user.slice/a.scope\n"),
              (std::vector<ControlGroup>{{kTwo, "/user.slice/a.scope"}}));
    EXPECT_EQ(MemoryTexts::Groups("9:name=systemd:/x\n4:memory:/a/b\n1:cpu,cpuacct:/c\n"),
              (std::vector<ControlGroup>{{kOne, "/a/b"}}));
    EXPECT_EQ(MemoryTexts::Groups("4:hugetlb,memory,rdma:/a\n0::/\n"),
              (std::vector<ControlGroup>{{kOne, "/a"}, {kTwo, "/"}}));
    EXPECT_EQ(MemoryTexts::Groups("0::/odd:name/b c\n"), (std::vector<ControlGroup>{{kTwo, "/odd:name/b c"}}));
}

TEST(MemoryTexts, AGroupOutsideOfWhatCanBeSeenBeginsAtTheRoot) {
    EXPECT_EQ(MemoryTexts::Groups("0::/../../b\n"), (std::vector<ControlGroup>{{kTwo, "/"}}));
    EXPECT_EQ(MemoryTexts::Groups("0::/a/..\n"), (std::vector<ControlGroup>{{kTwo, "/"}}));
    EXPECT_EQ(MemoryTexts::Groups("4:memory:\n"), (std::vector<ControlGroup>{{kOne, "/"}}));
    EXPECT_EQ(MemoryTexts::Groups("0::/a..b/c\n"), (std::vector<ControlGroup>{{kTwo, "/a..b/c"}}));
}

TEST(MemoryTexts, OtherTextsNameNoGroup) {
    for (const char* text : {"", "\n", "0", "0:", "memory", ":memory", "5::/a", "4:memoryx:/a", "4:cpu:/memory"})
        EXPECT_TRUE(MemoryTexts::Groups(text).empty()) << text;
}

TEST(MemoryTexts, TheGroupsAroundAGroupEndAtTheRoot) {
    using Paths = std::vector<std::string>;
    EXPECT_EQ(MemoryTexts::Upward("/a/b/c"), (Paths{"/a/b/c", "/a/b", "/a", "/"}));
    for (const char* text : {"", "/", "//"}) EXPECT_EQ(MemoryTexts::Upward(text), Paths{"/"}) << text;
    EXPECT_EQ(MemoryTexts::Upward("a"), (Paths{"a", "/"}));
}

TEST(MemoryTexts, IdleFilesCountThoseOfTheGroupsInside) {
    EXPECT_EQ(MemoryTexts::IdleFiles("anon 5\ninactive_file 7\nactive_file 9\n"), 7);
    EXPECT_EQ(MemoryTexts::IdleFiles("inactive_file 7\ntotal_inactive_file 70\n"), 70);
    for (const char* text : {"", "inactive_file", "inactive_file x", "inactive_file -7", "inactive_files 7"})
        EXPECT_EQ(MemoryTexts::IdleFiles(text), 0) << text;
}

TEST(MemoryTexts, NoBytesAreTooMuch) {
    std::mt19937 random(4711);
    const std::string letters(" \t\n\0:=/.,0123456789-someavg10MmTtlky\xff", 37);
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (auto length = random() % 80; length > 0; --length) text += letters[random() % letters.size()];
        const auto machine = MemoryTexts::Machine("MemTotal: 99 kB\nMemAvailable: " + text);
        EXPECT_TRUE(!machine || machine->Free <= machine->Total) << text;
        EXPECT_GE(MemoryTexts::Pressure("some avg10=" + text), 0) << text;
        EXPECT_GE(MemoryTexts::IdleFiles("inactive_file " + text), 0) << text;
        for (const auto& group : MemoryTexts::Groups("0::" + text)) EXPECT_EQ(group.path.front(), '/') << text;
        EXPECT_EQ(MemoryTexts::Upward(text).back(), "/") << text;
    }
}

/// A machine of files.
class MemoryOfFiles : public testing::Test {
protected:
    void Write(const std::string& path, const std::string& text) {
        std::filesystem::create_directories(std::filesystem::path(folder.Path(path)).parent_path());
        folder.Write(path, text);
    }
    void WriteGroupOfTwo(const std::string& path, const char* limit, std::int64_t use, std::int64_t idle) {
        Write(path + "/memory.max", limit + std::string("\n"));
        Write(path + "/memory.current", std::to_string(use) + "\n");
        Write(path + "/memory.stat", "anon 1\ninactive_file " + std::to_string(idle) + "\n");
    }
    void WriteGroupOfOne(const std::string& path, const char* limit, std::int64_t use, std::int64_t idle) {
        Write(path + "/memory.limit_in_bytes", limit + std::string("\n"));
        Write(path + "/memory.usage_in_bytes", std::to_string(use) + "\n");
        Write(path + "/memory.stat", "inactive_file 0\ntotal_inactive_file " + std::to_string(idle) + "\n");
    }
    [[nodiscard]] std::vector<MemoryRoom> Rooms() const { return MemoryFiles(folder.Path("")).Read(); }

    TemporaryFolder folder;
    const std::string two = "sys/fs/cgroup/", one = "sys/fs/cgroup/memory/", hybrid = "sys/fs/cgroup/unified/";
};

TEST_F(MemoryOfFiles, IsUnknownWithoutThem) { EXPECT_TRUE(Rooms().empty()); }

TEST_F(MemoryOfFiles, OfTheMachineAlone) {
    Write("proc/meminfo", kMeminfo);
    EXPECT_EQ(Rooms(), std::vector{kMachine});
    Write("proc/pressure/memory", kPressure);
    EXPECT_EQ(Rooms(), (std::vector{MemoryRoom{kMachine.Total, kMachine.Free, 12.34}}));
}

TEST_F(MemoryOfFiles, OfAGroupOfVersionTwo) {
    Write("proc/meminfo", kMeminfo);
    Write("proc/self/cgroup", "0::/a.slice/b.scope\n");
    WriteGroupOfTwo(two + "a.slice/b.scope", "4294967296", 1000 * kMegabyte, 200 * kMegabyte);
    Write(two + "a.slice/b.scope/memory.pressure", "some avg10=7.00 avg60=0\n");
    EXPECT_EQ(Rooms(), (std::vector{kMachine, {4096 * kMegabyte, 3296 * kMegabyte, 7}}));
}

TEST_F(MemoryOfFiles, TheNearestLimitMayStandInAParent) {
    Write("proc/meminfo", kMeminfo);
    Write("proc/self/cgroup", "0::/a/b/c\n");
    WriteGroupOfTwo(two + "a/b/c", "max", 100 * kMegabyte, 0);
    WriteGroupOfTwo(two + "a/b", "max", 200 * kMegabyte, 0);
    WriteGroupOfTwo(two + "a", "1073741824", 300 * kMegabyte, 50 * kMegabyte);
    EXPECT_EQ(Rooms(), (std::vector{kMachine, {1024 * kMegabyte, 774 * kMegabyte, 0}}));
}

TEST_F(MemoryOfFiles, EveryLimitOnTheWayUpCounts) {
    Write("proc/self/cgroup", "0::/a/b\n");
    WriteGroupOfTwo(two + "a/b", "1073741824", 100 * kMegabyte, 0);
    WriteGroupOfTwo(two + "a", "2147483648", 2000 * kMegabyte, 0);
    EXPECT_EQ(Rooms(),
              (std::vector<MemoryRoom>{{1024 * kMegabyte, 924 * kMegabyte, 0}, {2048 * kMegabyte, 48 * kMegabyte, 0}}));
}

TEST_F(MemoryOfFiles, WhereTheKernelSlowsTheGroupDownIsItsLimitToo) {
    Write("proc/self/cgroup", "0::/a\n");
    WriteGroupOfTwo(two + "a", "max", 100 * kMegabyte, 0);
    Write(two + "a/memory.high", "1073741824\n");
    EXPECT_EQ(Rooms(), (std::vector<MemoryRoom>{{1024 * kMegabyte, 924 * kMegabyte, 0}}));
    Write(two + "a/memory.max", "536870912\n");
    EXPECT_EQ(Rooms(), (std::vector<MemoryRoom>{{512 * kMegabyte, 412 * kMegabyte, 0}}));
}

TEST_F(MemoryOfFiles, OfAGroupOfVersionOne) {
    Write("proc/meminfo", kMeminfo);
    Write("proc/self/cgroup", "5:devices:/x\n4:memory:/a/b\n0::/\n");
    WriteGroupOfOne(one + "a/b", "4294967296", 4000 * kMegabyte, 1000 * kMegabyte);
    WriteGroupOfOne(one + "a", "9223372036854771712", 5000 * kMegabyte, 0);
    WriteGroupOfOne(one, "9223372036854771712", 6000 * kMegabyte, 0);
    EXPECT_EQ(Rooms(), (std::vector{kMachine, {4096 * kMegabyte, 1096 * kMegabyte, 0}}));
}

TEST_F(MemoryOfFiles, OfAContainerWhoseOwnGroupStandsAtTheRoot) {
    Write("proc/self/cgroup", "4:memory:/docker/0123456789abcdef\n0::/../x\n");
    WriteGroupOfOne(one, "2147483648", 1024 * kMegabyte, 0);
    WriteGroupOfTwo(hybrid, "1073741824", 24 * kMegabyte, 0);
    EXPECT_EQ(Rooms(), (std::vector<MemoryRoom>{{2048 * kMegabyte, 1024 * kMegabyte, 0},
                                                {1024 * kMegabyte, 1000 * kMegabyte, 0}}));
}

TEST_F(MemoryOfFiles, VersionTwoMayStandBesideVersionOne) {
    Write("proc/self/cgroup", "4:cpu:/a\n0::/a\n");
    WriteGroupOfTwo(hybrid + "a", "1073741824", 24 * kMegabyte, 0);
    EXPECT_EQ(Rooms(), (std::vector<MemoryRoom>{{1024 * kMegabyte, 1000 * kMegabyte, 0}}));
}

TEST_F(MemoryOfFiles, ALimitAboveWhatTheMachineHasIsNone) {
    Write("proc/meminfo", Meminfo(1024, 512));
    Write("proc/self/cgroup", "0::/a\n");
    WriteGroupOfTwo(two + "a", "1048576", 24, 0);
    EXPECT_EQ(Rooms().size(), 1u);
    WriteGroupOfTwo(two + "a", "1048575", 24, 0);
    EXPECT_EQ(Rooms().size(), 2u);
}

TEST_F(MemoryOfFiles, AGroupCanUseNoMoreThanItsLimitAndNoLessThanNothing) {
    Write("proc/self/cgroup", "0::/a\n");
    WriteGroupOfTwo(two + "a", "1000", 3000, 100);
    EXPECT_EQ(Rooms(), (std::vector<MemoryRoom>{{1000, 0, 0}}));
    WriteGroupOfTwo(two + "a", "1000", 300, 9000);
    EXPECT_EQ(Rooms(), (std::vector<MemoryRoom>{{1000, 1000, 0}}));
}

TEST_F(MemoryOfFiles, AGroupOfWhichSomethingElseIsSaidHasNoLimit) {
    Write("proc/self/cgroup", "0::/a\n");
    for (const char* limit : {"", "max", "-5", "5 6", "many", "99999999999999999999"}) {
        WriteGroupOfTwo(two + "a", limit, 24, 0);
        EXPECT_TRUE(Rooms().empty()) << limit;
    }
    WriteGroupOfTwo(two + "a", "1000", 24, 0);
    EXPECT_EQ(Rooms().size(), 1u);
    Write(two + "a/memory.current", "what\n");
    EXPECT_TRUE(Rooms().empty());
}

TEST(SystemMemory, IsReadOfThisVeryMachine) {
    const auto rooms = SystemMemory("")->Read();
    ASSERT_FALSE(rooms.empty());
    for (const auto& room : rooms) {
        EXPECT_GT(room.Total, 0);
        EXPECT_GE(room.Free, 0);
        EXPECT_LE(room.Free, room.Total);
    }
}

} // namespace

} // namespace tessa
