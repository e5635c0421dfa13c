#include "history/PageNews.h"

#include "base/PlainText.h"
#include "history/NewsKey.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>

namespace tessa {

namespace {

constexpr std::size_t kLongPassage = 200, kFirstWords = 80, kMostKeys = 20'000;
constexpr std::uint64_t kTop = 0x9E3779B97F4A7C15U; ///< what stands before the first passage

using KeySet = std::unordered_set<std::uint64_t>;

// By key, how often it changed at the last visits.
using RestlessTimes = std::unordered_map<std::uint64_t, std::uint8_t>;

std::vector<std::uint64_t> KeysOf(const std::vector<Passage>& passages) {
    std::vector<std::uint64_t> keys;
    bool sign = false;
    for (const Passage& each : passages) {
        const bool says = NewsKey::SaysAdvertisement(each.Words);
        // The sign stands above what it is the sign of.
        const bool counts = each.Kind != PassageKind::Advertisement && !says && !sign && keys.size() < kMostKeys;
        keys.push_back(counts ? NewsKey::Of(each.Words) : 0);
        sign = says && keys.size() < passages.size();
    }
    return keys;
}

std::uint64_t PlaceOf(std::uint64_t anchor, std::size_t behind) {
    return (anchor ^ (behind * 0x100000001b3U)) * 0xff51afd7ed558ccdU;
}

/// The places of those passages that only one of two pages has: how far behind which passage of both they stand.
struct Changed {
    std::size_t number;
    std::uint64_t place;
};

std::vector<Changed> ChangedIn(const std::vector<std::uint64_t>& keys, const KeySet& other) {
    std::vector<Changed> changed;
    std::uint64_t anchor = kTop;
    std::size_t behind = 0;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (keys[i] == 0) continue;
        if (other.contains(keys[i])) {
            anchor = keys[i];
            behind = 0;
        } else {
            changed.push_back({i, PlaceOf(anchor, ++behind)});
        }
    }
    return changed;
}

std::vector<std::uint64_t> KeptKeys(const std::vector<std::uint64_t>& keys) {
    std::vector<std::uint64_t> kept = keys;
    std::erase(kept, 0U);
    return kept;
}

bool AlwaysCounts(const Passage& passage) {
    return passage.Kind == PassageKind::Heading || passage.Words.size() >= kLongPassage;
}

void Tell(PageNews& news, const std::vector<Passage>& passages, const std::vector<std::uint64_t>& keys) {
    if (!news.Any()) return;
    std::size_t all = 0, fresh = 0;
    for (std::size_t i = 0; i < passages.size(); ++i)
        if (keys[i] != 0) all += passages[i].Words.size();
    for (const std::size_t i : news.New) fresh += passages[i].Words.size();
    news.Share = std::clamp(static_cast<int>(fresh * 100 / std::max<std::size_t>(all, 1)), 1, 100);
    const auto words =
        std::ranges::find_if(news.New, [&](std::size_t i) { return passages[i].Kind != PassageKind::Heading; });
    const std::size_t first = words == news.New.end() ? news.New.front() : *words;
    news.FirstWords = PlainLine(passages[first].Words, kFirstWords);
}

void PutNumber(std::string& bytes, std::uint64_t number, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFF);
}

std::optional<std::uint64_t> TakeNumber(std::string_view& bytes, std::size_t count) {
    if (bytes.size() < count) return std::nullopt;
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < count; ++i) number |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
    bytes.remove_prefix(count);
    return number;
}

constexpr char kFirstByte = 1; ///< of this form

} // namespace

namespace NewsOf {

Comparison Compare(const PageAsRead& before, const std::vector<Passage>& passages) {
    const auto keys = KeysOf(passages);
    const KeySet old(before.Keys.begin(), before.Keys.end()), now(keys.begin(), keys.end());
    KeySet gone;
    RestlessTimes times;
    for (const Changed& each : ChangedIn(before.Keys, now)) gone.insert(each.place);
    for (const RestlessPlace& each : before.Restless) times[each.Place] = each.Times;
    Comparison compared{{}, {KeptKeys(keys), {}}};
    KeySet told;
    for (const Changed& each : ChangedIn(keys, old)) {
        const bool gaveWay = gone.contains(each.place);
        const std::uint8_t changes = gaveWay ? times[each.place] : std::uint8_t{0};
        // More than that often needs no counting.
        if (gaveWay)
            compared.Now.Restless.push_back(
                {each.place, changes < kRestlessTimes ? static_cast<std::uint8_t>(changes + 1) : changes});
        const Passage& passage = passages[each.number];
        // What is said twice is new once.
        if ((changes < kRestlessTimes || AlwaysCounts(passage)) && told.insert(keys[each.number]).second)
            compared.News.New.push_back(each.number);
    }
    Tell(compared.News, passages, keys);
    return compared;
}

PageAsRead FirstTime(const std::vector<Passage>& passages) { return {KeptKeys(KeysOf(passages)), {}}; }

std::string ToBytes(const PageAsRead& page) {
    std::string bytes(1, kFirstByte);
    PutNumber(bytes, page.Keys.size(), 4);
    for (const std::uint64_t each : page.Keys) PutNumber(bytes, each, 8);
    for (const RestlessPlace& each : page.Restless) {
        PutNumber(bytes, each.Place, 8);
        PutNumber(bytes, each.Times, 1);
    }
    return bytes;
}

PageAsRead FromBytes(std::string_view bytes) {
    if (!bytes.starts_with(kFirstByte)) return {};
    bytes.remove_prefix(1);
    PageAsRead page;
    const auto count = TakeNumber(bytes, 4);
    if (!count || *count > bytes.size() / 8) return {};
    for (std::uint64_t i = 0; i < *count; ++i) page.Keys.push_back(*TakeNumber(bytes, 8));
    while (!bytes.empty()) {
        const auto place = TakeNumber(bytes, 8), times = TakeNumber(bytes, 1);
        if (!place || !times) return {};
        page.Restless.push_back({*place, static_cast<std::uint8_t>(*times)});
    }
    return page;
}

} // namespace NewsOf

} // namespace tessa
