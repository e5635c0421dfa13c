#include "tabpanel/TabFilter.h"

#include "history/SearchText.h"

#include <algorithm>
#include <utility>

namespace tessa {

namespace {

/// More of a text nobody remembers.
constexpr std::size_t kMostCompared = 2000;

Text Compared(TextView text) {
    Text folded = SearchText::Folded(FirstUnits(text, kMostCompared));
    std::erase_if(folded, SearchText::IsAccent);
    return folded;
}

bool IsBlank(char16_t unit) { return unit == u' ' || unit == 0x3000 || unit == 0x00A0 || (unit >= 9 && unit <= 13); }

} // namespace

TabFilter::TabFilter(TextView typed) {
    Text word;
    for (const char16_t unit : Compared(typed) + u' ') {
        if (!IsBlank(unit))
            word += unit;
        else if (!word.empty())
            m_words.push_back(std::exchange(word, Text()));
    }
}

bool TabFilter::Fits(const std::vector<TextView>& said) const {
    if (!Any()) return true;
    std::vector<Text> texts;
    for (const TextView each : said) texts.push_back(Compared(each));
    return std::ranges::all_of(m_words, [&](const Text& word) {
        return std::ranges::any_of(texts, [&](const Text& text) { return text.find(word) != Text::npos; });
    });
}

} // namespace tessa
