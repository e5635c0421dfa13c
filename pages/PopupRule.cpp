#include "pages/PopupRule.h"

#include "base/Address.h"
#include "base/Schemes.h"
#include "pages/PopupWords.h"

#include <utility>

namespace tessa {

namespace {

constexpr std::size_t kAllowOnce = 0, kAlwaysAllow = 2;

} // namespace

PopupRule::Step PopupRule::Want(std::optional<bool> decided, HeldWindow window) {
    if (decided) return *decided ? Step::Open : Step::Refuse;
    if (!Full()) m_held.push_back(std::move(window));
    return m_held.size() == 1 ? Step::Ask : Step::Reword;
}

Text PopupRule::Words(TextView asker) const {
    std::vector<Text> places;
    for (const HeldWindow& each : m_held) places.push_back(each.Place);
    return PopupWords(asker, places, Full() ? PopupsHeld::First : PopupsHeld::All);
}

std::vector<Text> PopupRule::Answers(bool mayRemember) {
    std::vector<Text> answers{u"A&llow Once", u"&Block"};
    if (mayRemember) answers.emplace_back(u"Al&ways Allow");
    return answers;
}

PopupRule::Verdict PopupRule::Answer(std::size_t answer) {
    const std::vector<HeldWindow> held = std::exchange(m_held, {});
    Verdict verdict;
    verdict.Remember = answer == kAlwaysAllow;
    if (answer != kAllowOnce && answer != kAlwaysAllow) return verdict;
    for (const HeldWindow& each : held)
        if (KindOfScheme(Address::SchemeOf(each.Address)) == SchemeKind::Web) verdict.Opened.push_back(each.Address);
    return verdict;
}

} // namespace tessa
