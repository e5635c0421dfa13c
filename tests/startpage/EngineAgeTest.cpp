#include "startpage/EngineAge.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;
using std::chrono::year_month_day;

struct Release {
    const char* version;
    std::optional<sys_days> day;
};

TEST(EngineAge, KnowsWhenAVersionWasReleased) {
    const Release releases[]{
        {"102.0.5005.177", 2022y / 5 / 24},
        {"108.0.5359.94", 2022y / 11 / 29},
        {"122.0.6261.171", 2024y / 2 / 20},
        {"131.0.6778.264", 2024y / 11 / 12},
        {"140.0.7339.207", 2025y / 9 / 2},
        {"149", 2026y / 6 / 2},
        {"153.0.0.0", 2026y / 9 / 8},
        // Newer than the program: one every two weeks.
        {"154.0.1", 2026y / 9 / 22},
        {"155.0.8059.84", 2026y / 10 / 6},
        {"179.0", 2027y / 9 / 7},
        // Older than any engine that the program can be built with.
        {"101.0", 2022y / 5 / 24},
        {"87.0.4280.144", 2022y / 5 / 24},
    };
    for (const Release& each : releases) EXPECT_EQ(EngineAge::ReleaseDay(each.version), each.day) << each.version;
}

TEST(EngineAge, SaysNothingOfWhatIsNoVersion) {
    for (const char* text : {"", "0.1", "-108.0", "+108", " 108.0", "108a.0", "abc", "3000.0", "99999999999999.0"}) {
        EXPECT_EQ(EngineAge::ReleaseDay(text), std::nullopt) << text;
        EXPECT_EQ(EngineAge::Notice(text, 2030y / 1 / 1), u"") << text;
    }
}

TEST(EngineAge, IsToldOnceAYearHasPassed) {
    struct Row {
        const char* version;
        year_month_day today;
        TextView month; ///< empty when nothing is to be told
    };
    const Row rows[]{
        {"108.0.5359.94", 2022y / 12 / 1, u""},
        {"108.0.5359.94", 2023y / 11 / 29, u""},
        {"108.0.5359.94", 2023y / 11 / 30, u"November 2022"},
        {"108.0.5359.94", 2026y / 11 / 22, u"November 2022"},
        {"122.0.6261.171", 2025y / 2 / 19, u""},
        {"122.0.6261.171", 2025y / 2 / 20, u"February 2024"},
        {"140.0.7339.207", 2026y / 9 / 2, u""},
        {"140.0.7339.207", 2026y / 9 / 3, u"September 2025"},
        {"155.0.8059.84", 2026y / 11 / 22, u""},
        {"155.0.8059.84", 2027y / 10 / 7, u"October 2026"},
        // A clock that is wrong makes no engine old.
        {"108.0.5359.94", 1970y / 1 / 1, u""},
    };
    for (const Row& row : rows) {
        const Text notice = EngineAge::Notice(row.version, row.today);
        EXPECT_EQ(notice.empty(), row.month.empty()) << row.version << ": " << ToUtf8(notice);
        EXPECT_NE(notice.find(row.month), Text::npos) << row.version << ": " << ToUtf8(notice);
    }
    EXPECT_EQ(EngineAge::Notice("108.0.5359.94", 2026y / 11 / 22),
              u"The page engine has the security fixes of November 2022. "
              u"A newer release of your system brings a newer engine.");
}

} // namespace

} // namespace tessa
