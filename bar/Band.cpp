#include "bar/CommandBar.h"

#include <algorithm>

namespace tessa {

Tool* Band::Add(ToolSource source, std::int32_t id, Text name, BeginGroup group) {
    m_entries.push_back({std::make_shared<Tool>(std::move(source), id, std::move(name)), group});
    Mark();
    return m_entries.back().Item.get();
}

void Band::Append(std::shared_ptr<Tool> tool, BeginGroup group) { Insert(m_entries.size(), std::move(tool), group); }

void Band::Insert(std::size_t index, std::shared_ptr<Tool> tool, BeginGroup group) {
    if (!tool) return;
    const auto place = static_cast<std::ptrdiff_t>(std::min(index, m_entries.size()));
    m_entries.insert(m_entries.begin() + place, {std::move(tool), group});
    Mark();
}

void Band::RemoveAt(std::size_t index) {
    if (index >= m_entries.size()) return;
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(index));
    Mark();
}

void Band::SetEntries(std::vector<BandEntry> entries) {
    m_entries = std::move(entries);
    Mark();
}

void Band::SetGroup(std::size_t index, BeginGroup group) {
    if (index >= m_entries.size() || m_entries[index].Group == group) return;
    m_entries[index].Group = group;
    Mark();
}

void Band::Clear() { SetEntries({}); }

Tool* Band::Find(TextView name) const {
    const auto found = std::ranges::find(m_entries, name, [](const BandEntry& e) { return TextView(e.Item->Name()); });
    return found == m_entries.end() ? nullptr : found->Item.get();
}

Connection Band::Attach(Signal<void()>::Listener mirror) {
    Connection attached = m_mirror.Connect(std::move(mirror));
    m_marked = false;
    Mark();
    return attached;
}

void Band::Mark() {
    if (m_marked || !m_mirror.HasListeners()) return;
    m_marked = true;
    m_mirror();
}

} // namespace tessa
