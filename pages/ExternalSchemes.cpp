#include "pages/ExternalSchemes.h"

#include "base/Schemes.h"

namespace tessa {

bool ExternalSchemes::IsExternal(TextView scheme) {
    if (scheme.empty()) return false;
    const SchemeKind kind = KindOfScheme(scheme);
    return kind == SchemeKind::Other || kind == SchemeKind::OldScript;
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

} // namespace tessa
