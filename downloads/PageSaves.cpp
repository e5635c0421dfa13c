#include "downloads/PageSaves.h"

#include "base/Address.h"
#include "base/Schemes.h"

#include <utility>

namespace tessa {

PageSaves::Step PageSaves::Want(std::optional<bool> decided, bool person, TextView address) {
    if (decided) return *decided ? Step::Save : Step::Refuse;
    // Whoever clicks for each file wants each of them.
    if (person) m_rule.PersonActed();
    if (m_rule.Take()) return Step::Save;
    if (m_rule.Refused()) return Step::Refuse;
    // What lies in the page itself cannot be fetched again later.
    const bool fetchable = KindOfScheme(Address::SchemeOf(address)) == SchemeKind::Web;
    if (fetchable && m_held.size() < kMostHeld) m_held.emplace_back(address);
    return std::exchange(m_asks, true) ? Step::Wait : Step::Ask;
}

std::vector<Text> PageSaves::Answer(bool allowed) {
    std::vector<Text> held = std::exchange(m_held, {});
    m_asks = false;
    if (allowed) {
        m_rule.Allow();
        return held;
    }
    m_rule.Refuse();
    return {};
}

} // namespace tessa
