#include "history/ReadingRound.h"

#include <algorithm>

namespace tessa {

namespace {

bool IsLeft(const TabOfRound& tab, std::int32_t front) { return tab.Counts && !tab.Read && tab.Index != front; }

} // namespace

namespace ReadingRound {

std::int32_t Next(const std::vector<TabOfRound>& tabs, std::int32_t front) {
    const auto here = std::ranges::find(tabs, front, &TabOfRound::Index);
    const auto isLeft = [=](const TabOfRound& each) { return IsLeft(each, front); };
    auto next = std::find_if(here, tabs.end(), isLeft);
    if (next == tabs.end()) next = std::find_if(tabs.begin(), here, isLeft);
    return next == tabs.end() || !isLeft(*next) ? 0 : next->Index;
}

std::size_t CountLeft(const std::vector<TabOfRound>& tabs, std::int32_t front) {
    return static_cast<std::size_t>(
        std::ranges::count_if(tabs, [=](const TabOfRound& each) { return IsLeft(each, front); }));
}

Text WordsFor(std::size_t left) {
    if (left == 0) return u"This is the last page that was left to read.";
    return left == 1 ? Text(u"One more page is left to read.")
                     : Decimal(static_cast<std::int64_t>(left)) + u" more pages are left to read.";
}

} // namespace ReadingRound

} // namespace tessa
