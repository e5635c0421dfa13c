#include "forms/ListBox.h"

#include <algorithm>

namespace tessa {

const Text* ListBox::FindSelected() const {
    const auto index = static_cast<std::size_t>(ListIndex());
    return ListIndex() >= 0 && index < m_items.size() ? &m_items[index] : nullptr;
}

void ListBox::AddItem(Text item, std::size_t index) {
    const std::size_t place = std::min(index, m_items.size());
    m_items.insert(m_items.begin() + static_cast<std::ptrdiff_t>(place), std::move(item));
    Report(ListBoxChange::Kind::Inserted, place);
    if (ListIndex() >= static_cast<std::int32_t>(place)) ListIndex = ListIndex() + 1;
}

void ListBox::RemoveItem(std::size_t index) {
    if (index >= m_items.size()) return;
    const auto removed = static_cast<std::int32_t>(index);
    if (ListIndex() == removed) ListIndex = -1;
    m_items.erase(m_items.begin() + removed);
    Report(ListBoxChange::Kind::Removed, index);
    if (ListIndex() > removed) ListIndex = ListIndex() - 1;
}

void ListBox::SetItem(std::size_t index, Text item) {
    if (index >= m_items.size()) return;
    m_items[index] = std::move(item);
    Report(ListBoxChange::Kind::Text, index);
}

void ListBox::SetFocus() {
    FocusWanted();
    GotFocus();
}

Connection ListBox::Attach(Signal<void(ListBoxChange)>::Listener items) {
    items({ListBoxChange::Kind::All, 0});
    return m_mirror.Connect(std::move(items));
}

void ListBox::Report(ListBoxChange::Kind kind, std::size_t index) const { m_mirror({kind, index}); }

} // namespace tessa
