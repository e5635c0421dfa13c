#include "base/CKeyValues.h"

#include <algorithm>
#include <utility>

namespace tessa {

CKeyValue* CKeyValues::Add(Text Key, Text Value) {
    const auto place = std::upper_bound(m_items.begin(), m_items.end(), Key,
                                        [](const Text& key, const CKeyValue& item) { return key < item.Key; });
    return &*m_items.insert(place, {std::move(Key), std::move(Value)});
}

CKeyValue* CKeyValues::FindItem(const IndexKey& vntIndexKey) {
    if (const auto* position = std::get_if<std::size_t>(&vntIndexKey)) {
        return *position >= 1 && *position <= m_items.size() ? &m_items[*position - 1] : nullptr;
    }
    const Text& key = std::get<Text>(vntIndexKey);
    const auto place = std::lower_bound(m_items.begin(), m_items.end(), key,
                                        [](const CKeyValue& item, const Text& name) { return item.Key < name; });
    return place != m_items.end() && place->Key == key ? &*place : nullptr;
}

void CKeyValues::Remove(const IndexKey& vntIndexKey) {
    if (const auto* item = FindItem(vntIndexKey)) m_items.erase(m_items.begin() + (item - m_items.data()));
}

} // namespace tessa
