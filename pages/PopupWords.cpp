#include "pages/PopupWords.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::size_t kMostPopupPlaces = 3;

Text CountOf(std::size_t count) { return Decimal(static_cast<std::int64_t>(count)); }

std::vector<Text> DifferentPlaces(const std::vector<Text>& places) {
    std::vector<Text> different;
    for (const Text& each : places) {
        if (!each.empty() && std::ranges::find(different, each) == different.end()) different.push_back(each);
    }
    return different;
}

// " of a.example, b.example and 2 other sites", or nothing.
Text PlaceWords(std::vector<Text> places) {
    // A single one more is named rather than counted.
    if (places.size() > kMostPopupPlaces + 1) {
        const Text others = CountOf(places.size() - kMostPopupPlaces) + u" other sites";
        places.resize(kMostPopupPlaces);
        places.push_back(others);
    }
    Text words;
    for (std::size_t i = 0; i < places.size(); ++i) {
        words += i == 0 ? u" of " : i + 1 == places.size() ? u" and " : u", ";
        words += places[i];
    }
    return words;
}

} // namespace

Text PopupWords(TextView asker, const std::vector<Text>& places, PopupsHeld held) {
    Text windows = places.size() == 1 ? Text(u"a window") : CountOf(places.size()) + u" windows";
    if (held == PopupsHeld::First) windows = u"more than " + windows;
    return Text(asker) + u" wants to open " + windows + PlaceWords(DifferentPlaces(places)) + u".";
}

} // namespace tessa
