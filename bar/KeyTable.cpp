#include "bar/KeyTable.h"

#include <algorithm>

namespace tessa {

namespace {

std::vector<KeyStroke> KeysIn(const std::vector<Shortcut>& all, TextView tool) {
    std::vector<KeyStroke> keys;
    for (const Shortcut& each : all) {
        if (each.ToolName == tool) keys.push_back(each.Key);
    }
    return keys;
}

} // namespace

void KeyTable::Design(std::vector<Shortcut> designed) {
    m_designed = std::move(designed);
    ResetAll();
}

const Shortcut* KeyTable::Find(KeyStroke key) const {
    const auto found = std::ranges::find(m_all, key, &Shortcut::Key);
    return found == m_all.end() ? nullptr : &*found;
}

std::vector<KeyStroke> KeyTable::Of(TextView tool) const { return KeysIn(m_all, tool); }

std::vector<KeyStroke> KeyTable::DesignedFor(TextView tool) const { return KeysIn(m_designed, tool); }

bool KeyTable::IsChosen(KeyStroke key) const {
    return std::ranges::any_of(m_chosen, [&](const auto& each) { return std::ranges::count(each.second, key) > 0; });
}

void KeyTable::Choose(TextView tool, const std::vector<KeyStroke>& keys) {
    if (const auto old = m_chosen.find(tool); old != m_chosen.end()) m_chosen.erase(old);
    std::vector<KeyStroke> chosen;
    for (const KeyStroke key : keys) {
        if (!IsChosen(key) && !std::ranges::count(chosen, key)) chosen.push_back(key);
    }
    if (chosen != DesignedFor(tool)) m_chosen.emplace(Text(tool), std::move(chosen));
    Compose();
}

void KeyTable::Reset(TextView tool) {
    if (const auto old = m_chosen.find(tool); old != m_chosen.end()) m_chosen.erase(old);
    Compose();
}

void KeyTable::ResetAll() {
    m_chosen.clear();
    Compose();
}

void KeyTable::Compose() {
    m_all.clear();
    for (const auto& [tool, keys] : m_chosen) {
        for (const KeyStroke key : keys) m_all.push_back({tool, key});
    }
    for (const Shortcut& each : m_designed) {
        if (!IsChosen(each.ToolName) && !IsChosen(each.Key)) m_all.push_back(each);
    }
    Changed();
}

} // namespace tessa
