#include "bar/CommandBarLayoutWords.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::string_view kEnd = ".";
constexpr std::int32_t kMostRows = 999;
constexpr std::int32_t kFarthest = 100000;

} // namespace

namespace LayoutWords {

std::vector<std::string_view> Split(std::string_view text) {
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const auto blank = text.find(' ');
        if (blank != 0) words.push_back(text.substr(0, blank));
        if (blank == std::string_view::npos) break;
        text.remove_prefix(blank + 1);
    }
    return words;
}

std::optional<std::int32_t> NumberIn(std::string_view word, std::int32_t least, std::int32_t most) {
    const auto number = WholeNumber(FromBytes(word));
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

std::string DockWords(const Docking& dock) {
    std::string words = WordOf(kSides, dock.Side);
    for (const std::int32_t number : {dock.Row, dock.Place})
        words += ' ' + std::to_string(std::clamp(number, 0, kMostRows));
    for (const Pixels length : {dock.Left, dock.Top})
        words += ' ' + std::to_string(std::clamp(length.value, -kFarthest, kFarthest));
    return words;
}

std::optional<Docking> DockOf(std::string_view text) {
    const auto words = Split(text);
    if (words.size() != 5) return std::nullopt;
    const auto side = ValueOf(kSides, words[0]);
    const auto row = NumberIn(words[1], 0, kMostRows), place = NumberIn(words[2], 0, kMostRows);
    const auto left = NumberIn(words[3], -kFarthest, kFarthest), top = NumberIn(words[4], -kFarthest, kFarthest);
    if (!side || !row || !place || !left || !top) return std::nullopt;
    return Docking{*side, *row, *place, Pixels{*left}, Pixels{*top}};
}

std::string ListWords(std::span<const std::string> items) {
    std::string words;
    for (const std::string& item : items) words += item + ' ';
    return words += kEnd;
}

std::optional<std::vector<std::string>> ListOf(std::string_view text) {
    const auto words = Split(text);
    if (words.empty() || words.back() != kEnd) return std::nullopt;
    return std::vector<std::string>(words.begin(), words.end() - 1);
}

} // namespace LayoutWords

} // namespace tessa
