#pragma once
#include "base/CStrings.h"

#include <vector>

namespace tessa {

/// A name and what it stands for.
struct CKeyValue {
    Text Key;
    Text Value;
};

/// A collection of names and values that is always sorted by name, in binary order (upper case before lower case).
/// Equal names keep the order in which they came. Positions are 1-based.
class CKeyValues {
public:
    /// Inserts before the first item whose `Key` is greater. The item belongs to the collection; the pointer holds
    /// until the next change.
    CKeyValue* Add(Text Key, Text Value);

    /// The item at a position, or the first with that name; nothing when there is none.
    [[nodiscard]] CKeyValue* FindItem(const IndexKey& vntIndexKey);
    [[nodiscard]] std::size_t Count() const { return m_items.size(); }
    /// Removes that item; does nothing when there is none.
    void Remove(const IndexKey& vntIndexKey);

    [[nodiscard]] auto begin() const { return m_items.begin(); }
    [[nodiscard]] auto end() const { return m_items.end(); }

private:
    std::vector<CKeyValue> m_items;
};

} // namespace tessa
