#include "pages/ExternalSchemes.h"

#include <algorithm>
#include <array>

namespace {

// What the engine, or the program itself, answers for.
constexpr std::array kOwn{
    TextView(u"http"),         TextView(u"https"),       TextView(u"file"),
    TextView(u"data"),         TextView(u"blob"),        TextView(u"about"),
    TextView(u"javascript"),   TextView(u"view-source"), TextView(u"filesystem"),
    TextView(u"ws"),           TextView(u"wss"),         TextView(u"chrome"),
    TextView(u"chrome-error"), TextView(u"devtools"),    TextView(u"chrome-devtools"),
    TextView(u"qrc"),          TextView(u"tessaview"),   TextView(u"tessaview-ask"),
    TextView(u"mailto"),
};

} // namespace

bool ExternalSchemes::IsExternal(TextView scheme) {
    return !scheme.empty() && std::ranges::find(kOwn, scheme) == kOwn.end();
}

ExternalRule ExternalSchemes::RuleFor(TextView scheme, TextView site) const {
    const auto found = m_answers.find({Text(scheme), Text(site)});
    if (found == m_answers.end()) return ExternalRule::Ask;
    return found->second ? ExternalRule::Open : ExternalRule::Refuse;
}

void ExternalSchemes::Remember(TextView scheme, TextView site, bool open) {
    m_answers[{Text(scheme), Text(site)}] = open;
}

std::vector<ExternalSchemes::Decision> ExternalSchemes::All() const {
    std::vector<Decision> all;
    for (const auto& [key, opens] : m_answers) all.push_back({key.first, key.second, opens});
    return all;
}

void ExternalSchemes::Forget(TextView scheme, TextView site) { m_answers.erase({Text(scheme), Text(site)}); }
