#include "startpage/EngineAge.h"

#include <array>
#include <charconv>

namespace tessa {

namespace {

using std::chrono::sys_days;

constexpr std::chrono::days kFixesStayFresh{365};
constexpr int kFirstRelease = 102;
/// Chromium has been released every two weeks since 153.
constexpr std::chrono::weeks kReleaseRhythm{2};

struct ReleaseDate {
    int year;
    unsigned month, day;
};

// Source: "Stable release date" of the release notes at developer.chrome.com/release-notes. Before 124, the release
// dates of Chrome in the compatibility data of MDN. One row for each version, from 102 on.
constexpr std::array kReleaseDates{
    ReleaseDate{2022, 5, 24},  ReleaseDate{2022, 6, 21},  ReleaseDate{2022, 8, 2},   ReleaseDate{2022, 9, 2},
    ReleaseDate{2022, 9, 27},  ReleaseDate{2022, 10, 25}, ReleaseDate{2022, 11, 29}, ReleaseDate{2023, 1, 10},
    ReleaseDate{2023, 2, 7},   ReleaseDate{2023, 3, 7},   ReleaseDate{2023, 4, 4},   ReleaseDate{2023, 5, 2},
    ReleaseDate{2023, 5, 30},  ReleaseDate{2023, 7, 18},  ReleaseDate{2023, 8, 15},  ReleaseDate{2023, 9, 12},
    ReleaseDate{2023, 10, 10}, ReleaseDate{2023, 10, 31}, ReleaseDate{2023, 12, 5},  ReleaseDate{2024, 1, 23},
    ReleaseDate{2024, 2, 20},  ReleaseDate{2024, 3, 19},  ReleaseDate{2024, 4, 16},  ReleaseDate{2024, 5, 14},
    ReleaseDate{2024, 6, 11},  ReleaseDate{2024, 7, 23},  ReleaseDate{2024, 8, 20},  ReleaseDate{2024, 9, 17},
    ReleaseDate{2024, 10, 15}, ReleaseDate{2024, 11, 12}, ReleaseDate{2025, 1, 14},  ReleaseDate{2025, 2, 4},
    ReleaseDate{2025, 3, 4},   ReleaseDate{2025, 4, 1},   ReleaseDate{2025, 4, 29},  ReleaseDate{2025, 5, 27},
    ReleaseDate{2025, 6, 24},  ReleaseDate{2025, 8, 5},   ReleaseDate{2025, 9, 2},   ReleaseDate{2025, 9, 30},
    ReleaseDate{2025, 10, 28}, ReleaseDate{2025, 12, 2},  ReleaseDate{2026, 1, 13},  ReleaseDate{2026, 2, 10},
    ReleaseDate{2026, 3, 10},  ReleaseDate{2026, 4, 7},   ReleaseDate{2026, 5, 5},   ReleaseDate{2026, 6, 2},
    ReleaseDate{2026, 6, 30},  ReleaseDate{2026, 7, 28},  ReleaseDate{2026, 8, 25},  ReleaseDate{2026, 9, 8},
};
constexpr int kLastRelease = kFirstRelease + static_cast<int>(kReleaseDates.size()) - 1;
static_assert(kLastRelease == 153);

constexpr std::array<TextView, 12> kMonths{u"January", u"February", u"March",     u"April",   u"May",      u"June",
                                           u"July",    u"August",   u"September", u"October", u"November", u"December"};

// No release has a number that high for a century; it is what a damaged text gives.
constexpr int kHighestRelease = 2999;

std::optional<int> ReleaseOf(std::string_view version) {
    int number = 0;
    const char* end = version.data() + version.size();
    const auto [rest, error] = std::from_chars(version.data(), end, number);
    const bool whole = error == std::errc() && (rest == end || *rest == '.');
    return whole && number > 0 && number <= kHighestRelease ? std::optional(number) : std::nullopt;
}

sys_days DayOf(const ReleaseDate& date) {
    return std::chrono::year(date.year) / std::chrono::month(date.month) / std::chrono::day(date.day);
}

Text MonthText(sys_days day) {
    const std::chrono::year_month_day date(day);
    return Text(kMonths.at(static_cast<unsigned>(date.month()) - 1)) + u" " + Decimal(static_cast<int>(date.year()));
}

} // namespace

std::optional<sys_days> EngineAge::ReleaseDay(std::string_view version) {
    const auto release = ReleaseOf(version);
    if (!release) return std::nullopt;
    if (*release > kLastRelease) return DayOf(kReleaseDates.back()) + kReleaseRhythm * (*release - kLastRelease);
    const int row = *release < kFirstRelease ? 0 : *release - kFirstRelease;
    return DayOf(kReleaseDates.at(static_cast<std::size_t>(row)));
}

Text EngineAge::Notice(std::string_view version, sys_days today) {
    const auto day = ReleaseDay(version);
    if (!day || today - *day <= kFixesStayFresh) return {};
    return u"The page engine has the security fixes of " + MonthText(*day) +
           u". A newer release of your system brings a newer engine.";
}

} // namespace tessa
