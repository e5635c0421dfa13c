#include "history/Snippets.h"

#include <algorithm>

namespace tessa {

namespace {

using SearchText::Piece, SearchText::Place;

constexpr std::size_t kMostMarks = 20;
constexpr TextView kLeftOut = u"...";

// In their order; where two begin together, the longer one. None overlaps another.
std::vector<Place> MarksIn(const std::vector<Piece>& pieces, TextView text) {
    std::vector<Place> all;
    for (const Piece& each : pieces) {
        const auto places = SearchText::PlacesOf(each, text, kMostMarks);
        all.insert(all.end(), places.begin(), places.end());
    }
    std::ranges::sort(all, [](const Place& one, const Place& other) {
        return one.At != other.At ? one.At < other.At : one.Units > other.Units;
    });
    std::vector<Place> apart;
    for (const Place& each : all)
        if (apart.empty() || each.At >= apart.back().At + apart.back().Units) apart.push_back(each);
    return apart;
}

// The first place from there on where the text may be cut: behind a blank, or not far away between two characters.
std::size_t CutFrom(TextView text, std::size_t at) {
    constexpr std::size_t kNear = 24;
    if (at == 0 || at >= text.size()) return std::min(at, text.size());
    const std::size_t blank = text.find(u' ', at);
    if (blank != TextView::npos && blank - at < kNear) return blank + 1;
    return IsLowSurrogate(text[at]) ? at + 1 : at;
}

void AddPart(Snippet& snippet, TextView words, bool marked) {
    if (words.empty()) return;
    if (!snippet.empty() && snippet.back().Marked == marked)
        snippet.back().Words += words;
    else
        snippet.push_back({Text(words), marked});
}

std::size_t CountIn(const std::vector<Piece>& pieces, TextView text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(pieces, [&](const Piece& each) { return !SearchText::PlacesOf(each, text, 1).empty(); }));
}

} // namespace

namespace Snippets {

Snippet Of(const std::vector<Piece>& pieces, TextView text, std::size_t most) {
    const std::vector<Place> marks = MarksIn(pieces, text);
    const std::size_t before = most / 4;
    const bool late = !marks.empty() && marks.front().At > before && text.size() > most;
    const std::size_t begin =
        late ? std::min(CutFrom(text, marks.front().At - before), marks.front().At) : std::size_t{0};
    const std::size_t end = text.size() - begin > most ? CutFrom(text, begin + most) : text.size();
    Snippet snippet;
    if (begin > 0) AddPart(snippet, kLeftOut, false);
    std::size_t at = begin;
    for (const Place& each : marks) {
        if (each.At < at || each.At + each.Units > end) continue;
        AddPart(snippet, text.substr(at, each.At - at), false);
        AddPart(snippet, text.substr(each.At, each.Units), true);
        at = each.At + each.Units;
    }
    AddPart(snippet, text.substr(at, end - at), false);
    if (end < text.size()) AddPart(snippet, kLeftOut, false);
    return snippet;
}

bool HoldAll(const std::vector<Piece>& pieces, const std::vector<TextView>& texts) {
    return std::ranges::all_of(pieces, [&](const Piece& piece) {
        return std::ranges::any_of(texts, [&](TextView text) { return !SearchText::PlacesOf(piece, text, 1).empty(); });
    });
}

std::vector<FoundPassage> Best(const std::vector<Piece>& pieces, const std::vector<Passage>& passages, TextView title,
                               std::size_t count, std::size_t most) {
    struct Rated {
        std::size_t number, pieces;
    };
    std::vector<Rated> rated;
    for (std::size_t i = 0; i < passages.size(); ++i) {
        const std::size_t held = CountIn(pieces, passages[i].Words);
        if (held > 0 && passages[i].Words != title) rated.push_back({i, held});
    }
    std::ranges::stable_sort(rated, std::ranges::greater(), &Rated::pieces);
    if (rated.size() > count) rated.resize(count);
    std::ranges::sort(rated, {}, &Rated::number);
    std::vector<FoundPassage> best;
    for (const Rated& each : rated) best.push_back({each.number, Of(pieces, passages[each.number].Words, most)});
    return best;
}

} // namespace Snippets

} // namespace tessa
