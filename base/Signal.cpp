#include "base/Signal.h"

#include <algorithm>

namespace tessa {

SignalListeners::Entry* SignalListeners::LiveAt(std::size_t index) const {
    Entry* entry = m_entries[index].get();
    return Ended(entry) ? nullptr : entry;
}

bool SignalListeners::AnyLive() const {
    return std::ranges::any_of(m_entries, [this](const auto& entry) { return !Ended(entry.get()); });
}

void SignalListeners::End(const Entry* entry) {
    m_ended.push_back(entry);
    if (m_telling == 0) Sweep();
}

void SignalListeners::EndAll() {
    for (const auto& entry : m_entries) m_ended.push_back(entry.get());
    if (m_telling == 0) Sweep();
}

void SignalListeners::EndTelling() {
    if (--m_telling == 0 && !m_ended.empty()) Sweep();
}

bool SignalListeners::Ended(const Entry* entry) const { return std::ranges::find(m_ended, entry) != m_ended.end(); }

// What a listener holds may itself end connections when it goes.
void SignalListeners::Sweep() {
    std::vector<std::unique_ptr<Entry>> gone;
    for (auto& entry : m_entries) {
        if (Ended(entry.get())) gone.push_back(std::move(entry));
    }
    std::erase(m_entries, nullptr);
    m_ended.clear();
}

} // namespace tessa
