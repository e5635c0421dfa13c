// Tests: ProcText, SystemUse
#include "base/os/ProcessUse.h"

#include "tests/fakes/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tessa {

using namespace std::chrono_literals;

namespace {

constexpr auto kStat = "4711 (QtWebEngineProc) S 4690 4690 4690 0 -1 4194560 35318 0 12 0 812 344 3 4 20 0 19 0 904411 "
                       "1499508736 21860 18446744073709551615 1 1 0 0 0 0 0 4098 1073741824 0 0 0 17 1 0 0 0 0 0\n";

TEST(ProcessUse, OwnMemoryIsWhatIsResidentAndNotShared) {
    EXPECT_EQ(ProcessReader::OwnPages("366091 21860 17348 3 0 30512 0\n"), 21860 - 17348);
    EXPECT_EQ(ProcessReader::OwnPages("1 2 2"), 0);
}

TEST(ProcessUse, OtherTextsAreNoMemory) {
    for (const char* text : {"", "\n", "366091", "366091 21860", "a b c", "1 -5 -6", "1 2 3", "1 2x 1", "1 2 0x1"})
        EXPECT_EQ(ProcessReader::OwnPages(text), std::nullopt) << text;
}

TEST(ProcessUse, TimeIsThatOfUserAndSystem) { EXPECT_EQ(ProcessReader::Ticks(kStat), 812 + 344); }

TEST(ProcessUse, TheNameOfAProgramMayHoldAnything) {
    EXPECT_EQ(ProcessReader::Ticks("7 (a) Z (b 1 2) R 1 1 1 0 -1 0 0 0 0 0 5 6 0 0 20"), 11);
    EXPECT_EQ(ProcessReader::Ticks("7 () R 1 1 1 0 -1 0 0 0 0 0 5 6 0 0 20"), 11);
}

TEST(ProcessUse, OtherTextsAreNoTime) {
    for (const char* text : {"", "7", "7 (a", "7 (a)", "7 (a) R 1 2 3", "7 (a) R 1 1 1 0 -1 0 0 0 0 0 x 6 0 0 20"})
        EXPECT_EQ(ProcessReader::Ticks(text), std::nullopt) << text;
}

TEST(ProcessUse, AProcessThatHasEndedUsesNothing) {
    EXPECT_EQ(ProcessReader::Ticks("7 (a) Z 1 1 1 0 -1 0 0 0 0 0 5 6 0 0 20"), std::nullopt);
}

TEST(ProcessUse, IsReadFromTheFolderOfTheProcess) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("4711"));
    folder.Write("4711/statm", "366091 21860 17348 3 0 30512 0\n");
    folder.Write("4711/stat", kStat);
    const ProcessReader reader({.PageBytes = 4096, .TicksPerSecond = 100}, folder.Path(""));
    EXPECT_EQ(reader.Read(4711), (ProcessUse{4512 * 4096, 11560ms}));
    EXPECT_EQ(reader.Read(4712), std::nullopt);
    EXPECT_EQ(reader.Read(0), std::nullopt);
    EXPECT_EQ(reader.Read(-1), std::nullopt);
}

TEST(ProcessUse, IsKnownOfThisVeryProcess) {
    const auto use = SystemProcessUse(ThisProcess());
    ASSERT_TRUE(use);
    EXPECT_GT(use->Memory, 0);
    EXPECT_EQ(SystemProcessUse(0), std::nullopt);
    EXPECT_EQ(SystemProcessUse(-1), std::nullopt);
}

} // namespace

} // namespace tessa
