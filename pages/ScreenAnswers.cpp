#include "pages/ScreenAnswers.h"

#include <array>

namespace tessa {

namespace ScreenAnswers {

namespace {

struct ScreenAnswer {
    TextView caption;
    Meaning meaning;
};

constexpr std::array kScreenAnswers{ScreenAnswer{u"&Share", Meaning::Share}, ScreenAnswer{u"&Block", Meaning::Block},
                                    ScreenAnswer{u"Al&ways Block", Meaning::AlwaysBlock}};

} // namespace

std::vector<Text> Captions(bool mayRemember) {
    std::vector<Text> captions;
    for (const auto& [caption, meaning] : kScreenAnswers) {
        if (mayRemember || meaning != Meaning::AlwaysBlock) captions.emplace_back(caption);
    }
    return captions;
}

Meaning MeaningOf(std::size_t answer) {
    return answer < kScreenAnswers.size() ? kScreenAnswers[answer].meaning : Meaning::Block;
}

} // namespace ScreenAnswers

} // namespace tessa
