#include "history/SearchText.h"

#include <algorithm>

namespace tessa {

namespace {

using SearchText::CharacterAt, SearchText::CodePoint, SearchText::IsAccent, SearchText::IsOfWord,
    SearchText::IsUnspaced, SearchText::Piece, SearchText::Place;

constexpr std::size_t kMostPieces = 16, kLongestTyped = 500;

/// Where a word, or a run of an unspaced script, stands.
struct Bounds {
    std::size_t begin = 0, end = 0;
    bool unspaced = false;

    [[nodiscard]] bool Empty() const { return begin == end; }
};

/// The next one from there on; an empty one at the end.
Bounds NextBounds(TextView text, std::size_t at) {
    Bounds found{at, at};
    while (at < text.size()) {
        const CodePoint point = CharacterAt(text, at);
        const bool accent = IsAccent(text[at]), empty = found.begin == at;
        if (!IsOfWord(point.Character) || (accent && empty)) {
            if (!empty) break;
            found.begin = at += point.Units;
            continue;
        }
        const bool unspaced = IsUnspaced(point.Character);
        if (empty) found.unspaced = unspaced;
        if (!accent && unspaced != found.unspaced) break;
        at += point.Units;
    }
    found.end = at;
    return found;
}

/// The same with what stands there.
struct Run : Bounds {
    Text word; ///< folded, without accents
};

Run NextRun(TextView text, std::size_t at) {
    Run run{NextBounds(text, at), {}};
    for (const char16_t unit : text.substr(run.begin, run.end - run.begin))
        if (!IsAccent(unit)) run.word += SearchText::Folded(unit);
    return run;
}

void AddPairs(Text& index, TextView run) {
    for (std::size_t at = 0; at < run.size();) {
        const std::size_t first = CharacterAt(run, at).Units;
        const std::size_t second = at + first < run.size() ? CharacterAt(run, at + first).Units : 0;
        if (!index.empty()) index += u' ';
        index += run.substr(at, first + second);
        at += first;
    }
}

// In quotes, what has to be there as it stands; else each word by itself.
void AddPieces(std::vector<Piece>& pieces, TextView typed, bool quoted) {
    Piece together;
    together.WholeWords = quoted;
    const auto take = [&] {
        if (!together.Words.empty() && pieces.size() < kMostPieces) pieces.push_back(together);
        together.Words.clear();
    };
    for (std::size_t at = 0; at < typed.size();) {
        const Run run = NextRun(typed, at);
        // A blank ends what belongs together, a hyphen or a dot does not.
        const TextView between = typed.substr(at, run.begin - at);
        if (!quoted && between.find_first_of(u" \t\n\u3000\u00a0") != TextView::npos) take();
        at = run.end;
        if (run.word.empty()) break;
        if (run.unspaced) {
            take();
            if (pieces.size() < kMostPieces) pieces.push_back({{run.word}, true, false});
        } else {
            together.Words.push_back(run.word);
        }
    }
    take();
}

Text PhraseOf(const Piece& piece) {
    Text words;
    if (piece.Unspaced) {
        AddPairs(words, piece.Words.front());
        // The last character alone is there only at the end of a run.
        const std::size_t last = words.rfind(u' ');
        if (last != Text::npos) words.resize(last);
    } else {
        for (const Text& each : piece.Words) words += (words.empty() ? u"" : u" ") + each;
    }
    const bool alone = piece.Unspaced && CharacterAt(piece.Words.front(), 0).Units == piece.Words.front().size();
    const bool beginning = piece.Unspaced ? alone : !piece.WholeWords;
    return u'"' + words + u'"' + (beginning ? u"*" : u"");
}

// How many units of the text the words take there; 0 when they do not stand there.
std::size_t UnitsAt(TextView words, TextView text, std::size_t at) {
    const std::size_t begin = at;
    for (const char16_t unit : words) {
        while (at < text.size() && at > begin && IsAccent(text[at])) ++at;
        if (at >= text.size() || SearchText::Folded(text[at]) != unit) return 0;
        ++at;
    }
    while (at < text.size() && IsAccent(text[at])) ++at;
    return at - begin;
}

std::vector<Place> UnspacedPlaces(const Text& word, TextView text, std::size_t most) {
    std::vector<Place> places;
    for (std::size_t at = 0; at < text.size() && places.size() < most;) {
        const std::size_t units = UnitsAt(word, text, at);
        if (units > 0) places.push_back({at, units});
        at += std::max<std::size_t>(units, 1);
    }
    return places;
}

// Whether the words stand one behind the other from that place on; then where they end.
std::size_t EndOfWords(const Piece& piece, TextView text, Bounds place) {
    for (std::size_t i = 0;; ++i) {
        const bool last = i + 1 == piece.Words.size();
        const std::size_t units = place.Empty() || place.unspaced ? 0 : UnitsAt(piece.Words[i], text, place.begin);
        const bool whole = place.begin + units == place.end;
        if (units == 0 || (!whole && (!last || piece.WholeWords))) return 0;
        if (last) return place.begin + units;
        place = NextBounds(text, place.end);
    }
}

} // namespace

namespace SearchText {

Text ForIndex(TextView text) {
    Text index;
    for (std::size_t at = 0; at < text.size();) {
        const Run run = NextRun(text, at);
        if (run.word.empty()) break;
        at = run.end;
        if (run.unspaced) {
            AddPairs(index, run.word);
        } else {
            if (!index.empty()) index += u' ';
            index += run.word;
        }
    }
    return index;
}

std::vector<Piece> PiecesOf(TextView typed) {
    std::vector<Piece> pieces;
    typed = typed.substr(0, kLongestTyped);
    for (bool quoted = false;; quoted = !quoted) {
        const std::size_t quote = typed.find(u'"');
        // A quote that is not closed belongs to what is still being typed.
        AddPieces(pieces, typed.substr(0, quote), quoted && quote != TextView::npos);
        if (quote == TextView::npos) return pieces;
        typed.remove_prefix(quote + 1);
    }
}

Text QueryOf(const std::vector<Piece>& pieces) {
    Text query;
    for (const Piece& each : pieces) query += (query.empty() ? u"" : u" ") + PhraseOf(each);
    return query;
}

std::vector<Place> PlacesOf(const Piece& piece, TextView text, std::size_t most) {
    if (piece.Words.empty()) return {};
    if (piece.Unspaced) return UnspacedPlaces(piece.Words.front(), text, most);
    std::vector<Place> places;
    for (std::size_t at = 0; at < text.size() && places.size() < most;) {
        const Bounds place = NextBounds(text, at);
        if (place.Empty()) break;
        const std::size_t end = EndOfWords(piece, text, place);
        if (end > 0) places.push_back({place.begin, end - place.begin});
        at = std::max(place.end, end);
    }
    return places;
}

} // namespace SearchText

} // namespace tessa
