#include "base/os/IdleCores.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using Time = IdleCores::Time;

TEST(IdleCores, AreReadFromWhatTheSystemCountsOfAll) {
    EXPECT_EQ(IdleCores::Ticks("cpu  10 20 30 400 5 6 7 8 0 0\ncpu0 1 2 3 4 5\n"), 425);
    EXPECT_EQ(IdleCores::Ticks("cpu  10 0 30 400 5"), 405);
    for (const char* text : {"", "cpu", "cpu0 1 2 3 4 5", "cpu  1 2 3 4\n5", "cpu  1 2 3 x 5", "cpu  1 2 3 -4 5",
                             "cpu  1 2 3 99999999999999999999 5"})
        EXPECT_EQ(IdleCores::Ticks(text), std::nullopt) << text;
}

TEST(IdleCores, AreTheAverageSinceTheLastLook) {
    const TemporaryFolder folder;
    const auto tell = [&](int idle) { folder.Write("stat", "cpu  1 0 1 " + std::to_string(idle) + " 0\n"); };
    IdleCores cores(100, folder.Path("stat"));
    EXPECT_EQ(cores.SinceLast(Time{0}), std::nullopt) << "no file";
    tell(1000);
    EXPECT_EQ(cores.SinceLast(Time{1000}), std::nullopt) << "the first look";
    tell(1150);
    EXPECT_DOUBLE_EQ(cores.SinceLast(Time{2000}).value_or(-1), 1.5);
    tell(1160);
    EXPECT_DOUBLE_EQ(cores.SinceLast(Time{2050}).value_or(-1), 2.0);
    EXPECT_EQ(cores.SinceLast(Time{2050}), std::nullopt) << "no time has gone by";
    tell(100);
    EXPECT_EQ(cores.SinceLast(Time{2100}), std::nullopt) << "a core was taken away, with what it had counted";
    tell(110);
    EXPECT_DOUBLE_EQ(cores.SinceLast(Time{2200}).value_or(-1), 1.0);
}

TEST(IdleCores, OfThisMachineAreSomeNumber) {
    IdleCores cores;
    EXPECT_EQ(cores.SinceLast(Time{0}), std::nullopt);
    EXPECT_GE(cores.SinceLast(Time{1000}).value_or(-1), 0);
}

} // namespace

} // namespace tessa
