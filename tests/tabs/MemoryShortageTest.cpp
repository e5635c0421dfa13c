#include "tabs/MemoryShortage.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace tessa {

namespace {

constexpr std::int64_t kMB = 1024 * 1024, kGB = 1024 * kMB;
constexpr auto kNone = Shortage::None, kShort = Shortage::Short, kSevere = Shortage::Severe;

struct Judged {
    Shortage before;
    MemoryRoom room;
    Shortage expected;
};

class MemoryOfOneRoom : public testing::TestWithParam<Judged> {};

TEST_P(MemoryOfOneRoom, IsJudged) {
    const auto& [before, room, expected] = GetParam();
    EXPECT_EQ(MemoryShortage::Judge(before, std::vector{room}), expected)
        << "of " << room.Total / kMB << " MB, " << room.Free / kMB << " free, " << room.Pressure << " % waiting";
}

INSTANTIATE_TEST_SUITE_P(
    BySize, MemoryOfOneRoom,
    testing::Values(
        // 24 GB: a tenth is 2458 MB, a twentieth 1229.
        Judged{kNone, {24 * kGB, 20 * kGB, 0}, kNone}, Judged{kNone, {24 * kGB, 2458 * kMB, 0}, kNone},
        Judged{kNone, {24 * kGB, 2457 * kMB, 0}, kShort}, Judged{kNone, {24 * kGB, 1229 * kMB, 0}, kShort},
        Judged{kNone, {24 * kGB, 1228 * kMB, 0}, kSevere}, Judged{kNone, {24 * kGB, 0, 0}, kSevere},
        // 4 GB: a tenth would be 410 MB.
        Judged{kNone, {4 * kGB, 512 * kMB, 0}, kNone}, Judged{kNone, {4 * kGB, 511 * kMB, 0}, kShort},
        Judged{kNone, {4 * kGB, 256 * kMB, 0}, kShort}, Judged{kNone, {4 * kGB, 255 * kMB, 0}, kSevere},
        // 128 GB: a tenth would be 12.8 GB.
        Judged{kNone, {128 * kGB, 4 * kGB, 0}, kNone}, Judged{kNone, {128 * kGB, 4 * kGB - 1, 0}, kShort},
        Judged{kNone, {128 * kGB, 2 * kGB, 0}, kShort}, Judged{kNone, {128 * kGB, 2 * kGB - 1, 0}, kSevere},
        // 1 GB: the floor of 512 MB would be half of it.
        Judged{kNone, {kGB, 256 * kMB, 0}, kNone}, Judged{kNone, {kGB, 255 * kMB, 0}, kSevere},
        Judged{kNone, {512 * kMB, 128 * kMB, 0}, kNone}));

INSTANTIATE_TEST_SUITE_P(
    OnceItIsShort, MemoryOfOneRoom,
    testing::Values(Judged{kShort, {4 * kGB, 600 * kMB, 0}, kShort}, Judged{kShort, {4 * kGB, 767 * kMB, 0}, kShort},
                    Judged{kShort, {4 * kGB, 768 * kMB, 0}, kNone}, Judged{kShort, {4 * kGB, 300 * kMB, 0}, kShort},
                    Judged{kSevere, {4 * kGB, 300 * kMB, 0}, kSevere},
                    Judged{kSevere, {4 * kGB, 383 * kMB, 0}, kSevere}, Judged{kSevere, {4 * kGB, 384 * kMB, 0}, kShort},
                    Judged{kSevere, {4 * kGB, 700 * kMB, 0}, kShort}, Judged{kSevere, {4 * kGB, 768 * kMB, 0}, kNone}));

INSTANTIATE_TEST_SUITE_P(
    ByPressure, MemoryOfOneRoom,
    testing::Values(
        // Others wait, there is room: not our memory that is short.
        Judged{kNone, {4 * kGB, 3 * kGB, 100}, kNone}, Judged{kNone, {4 * kGB, 1024 * kMB, 100}, kNone},
        Judged{kNone, {4 * kGB, 1023 * kMB, 9.99}, kNone}, Judged{kNone, {4 * kGB, 1023 * kMB, 10}, kShort},
        Judged{kNone, {4 * kGB, 1023 * kMB, 40}, kShort}, Judged{kNone, {4 * kGB, 511 * kMB, 39.9}, kShort},
        Judged{kNone, {4 * kGB, 511 * kMB, 40}, kSevere}, Judged{kShort, {4 * kGB, 1023 * kMB, 7}, kShort},
        Judged{kShort, {4 * kGB, 1023 * kMB, 6.6}, kNone}, Judged{kShort, {4 * kGB, 1536 * kMB, 50}, kNone},
        Judged{kSevere, {4 * kGB, 600 * kMB, 27}, kSevere}, Judged{kSevere, {4 * kGB, 600 * kMB, 26}, kShort}));

INSTANTIATE_TEST_SUITE_P(Nonsense, MemoryOfOneRoom,
                         testing::Values(Judged{kNone, {0, 0, 0}, kNone}, Judged{kSevere, {0, 0, 100}, kNone},
                                         Judged{kNone, {-1, -1, 0}, kNone}, Judged{kNone, {kGB, -5, 0}, kSevere},
                                         Judged{kNone, {kGB, 9 * kGB, 0}, kNone},
                                         Judged{kNone,
                                                {std::numeric_limits<std::int64_t>::max(),
                                                 std::numeric_limits<std::int64_t>::max(), 100},
                                                kNone}));

TEST(MemoryShortage, TheShortestRoomCounts) {
    const MemoryRoom ample{24 * kGB, 20 * kGB, 0}, low{4 * kGB, 400 * kMB, 0}, lowest{4 * kGB, 100 * kMB, 0};
    EXPECT_EQ(MemoryShortage::Judge(kNone, std::vector{ample, low}), kShort);
    EXPECT_EQ(MemoryShortage::Judge(kNone, std::vector{low, lowest, ample}), kSevere);
    EXPECT_EQ(MemoryShortage::Judge(kSevere, std::vector{ample, ample}), kNone);
}

TEST(MemoryShortage, IsNoneWhereTheKernelTellsNothing) {
    EXPECT_EQ(MemoryShortage::Judge(kNone, {}), kNone);
    EXPECT_EQ(MemoryShortage::Judge(kSevere, {}), kNone);
}

TEST(MemoryShortage, DoesNotFlapWhenItGoesUpAndDownAroundALimit) {
    MemoryShortage shortage;
    int changes = 0;
    for (int i = 0; i < 100; ++i) {
        const Shortage before = shortage.Level();
        const std::vector room{MemoryRoom{4 * kGB, (i % 2 == 0 ? 500 : 700) * kMB, 0}};
        changes += shortage.Note(room) != before ? 1 : 0;
    }
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(shortage.Level(), kShort);
}

TEST(MemoryShortage, MoreMemoryIsNeverShorter) {
    for (const std::int64_t total : {256 * kMB, kGB, 2 * kGB, 4 * kGB, 16 * kGB, 256 * kGB}) {
        for (const Shortage before : {kNone, kShort, kSevere}) {
            Shortage last = kSevere;
            for (std::int64_t part = 0; part <= 100; ++part) {
                const std::vector room{MemoryRoom{total, total / 100 * part, 0}};
                const Shortage level = MemoryShortage::Judge(before, room);
                EXPECT_LE(level, last) << total << ' ' << part;
                last = level;
            }
            EXPECT_EQ(last, kNone) << total;
        }
    }
}

} // namespace

} // namespace tessa
