#pragma once
#include "base/Text.h"

#include <cstddef>
#include <list>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

namespace tessa {

/// One string of a collection, held in `Key`.
struct CString {
    Text Key;
};

/// By 1-based position or by collection key.
using IndexKey = std::variant<std::size_t, Text>;

/// An ordered collection of strings, each findable by a key of its own when one was given. Positions are 1-based.
class CStrings {
public:
    /// Appends an item. `sKey` makes it findable when not empty; an `sKey` in use already adds nothing and returns
    /// nothing. The item belongs to the collection and stays where it is until removed.
    CString* Add(Text Key, Text sKey = {});

    /// The item at a position or with a key; nothing when there is none.
    [[nodiscard]] CString* FindItem(const IndexKey& vntIndexKey);
    [[nodiscard]] std::size_t Count() const { return m_items.size(); }
    /// Removes that item; does nothing when there is none.
    void Remove(const IndexKey& vntIndexKey);

    [[nodiscard]] auto begin() const { return m_items.begin(); }
    [[nodiscard]] auto end() const { return m_items.end(); }

private:
    struct Entry : CString {
        Text sKey;
    };
    std::list<Entry>::iterator Locate(const IndexKey& vntIndexKey);

    std::list<Entry> m_items;
    std::unordered_map<Text, std::list<Entry>::iterator> m_byKey;
};

} // namespace tessa
