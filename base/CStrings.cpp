#include "base/CStrings.h"

#include <iterator>
#include <utility>

namespace tessa {

CString* CStrings::Add(Text Key, Text sKey) {
    if (!sKey.empty() && m_byKey.contains(sKey)) return nullptr;
    m_items.push_back({{std::move(Key)}, sKey});
    const auto item = std::prev(m_items.end());
    if (!sKey.empty()) m_byKey.emplace(std::move(sKey), item);
    return &*item;
}

CString* CStrings::FindItem(const IndexKey& vntIndexKey) {
    const auto item = Locate(vntIndexKey);
    return item == m_items.end() ? nullptr : &*item;
}

void CStrings::Remove(const IndexKey& vntIndexKey) {
    const auto item = Locate(vntIndexKey);
    if (item == m_items.end()) return;
    if (!item->sKey.empty()) m_byKey.erase(item->sKey);
    m_items.erase(item);
}

std::list<CStrings::Entry>::iterator CStrings::Locate(const IndexKey& vntIndexKey) {
    if (const auto* sKey = std::get_if<Text>(&vntIndexKey)) {
        const auto found = m_byKey.find(*sKey);
        return found == m_byKey.end() ? m_items.end() : found->second;
    }
    const std::size_t position = std::get<std::size_t>(vntIndexKey);
    if (position < 1 || position > m_items.size()) return m_items.end();
    return std::next(m_items.begin(), static_cast<std::ptrdiff_t>(position - 1));
}

} // namespace tessa
