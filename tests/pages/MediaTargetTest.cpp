#include "pages/MediaTarget.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

/// Presses a key once for each line, and says which view each was for. "1 *2 [3]" are three views: the second is heard,
/// the third is in front.
std::string Targets(const std::vector<std::string>& lines) {
    MediaTarget keys;
    std::string targets;
    for (const std::string& line : lines) {
        std::vector<MediaView> open;
        std::int32_t front = 99;
        for (std::size_t at = 0; at < line.size(); ++at) {
            if (line[at] < '0' || line[at] > '9') continue;
            const std::int32_t index = line[at] - '0';
            const std::string before = line.substr(0, at);
            open.push_back({index, before.ends_with('*')});
            if (before.ends_with("[") || before.ends_with("[*")) front = index;
        }
        targets += std::to_string(keys.Choose(open, front));
    }
    return targets;
}

TEST(MediaTarget, IsWhatIsHeardAndOfThoseWhatIsInFront) {
    EXPECT_EQ(Targets({"1 *2 [3]"}), "2");
    EXPECT_EQ(Targets({"*1 *2 [*3]"}), "3");
    EXPECT_EQ(Targets({"*1 *2 [3]"}), "1") << "the first of those behind it";
    EXPECT_EQ(Targets({"[1] *2", "[1] 2 *3"}), "23");
}

TEST(MediaTarget, IsWhatWasHeardLastOnceThatIsPaused) {
    EXPECT_EQ(Targets({"[1] *2 3", "[1] 2 3", "1 2 [3]"}), "222");
    EXPECT_EQ(Targets({"[*1] *2", "[1] 2"}), "11");
}

TEST(MediaTarget, IsTheFrontWhereNothingWasHeard) {
    EXPECT_EQ(Targets({"1 [2]", "[1] 2"}), "21") << "and a key alone makes none the last";
    EXPECT_EQ(Targets({"[1] *2", "[1] 3", "1 [3]"}), "213") << "what was heard has been closed";
}

TEST(MediaTarget, IsNothingWhereNoViewIsInFront) {
    EXPECT_EQ(Targets({"", "1 2"}), "00");
    EXPECT_EQ(Targets({"1 *2", "1 2"}), "22");
}

} // namespace

} // namespace tessa
