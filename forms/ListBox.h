#pragma once
#include "base/Property.h"
#include "base/Text.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessa {

/// What has happened to a list's items: to the one at `index`, or to all of them.
struct ListBoxChange {
    enum class Kind { All, Inserted, Removed, Text };
    Kind kind = Kind::All;
    std::size_t index = 0;
};

/// A list of texts of which one or none is selected, numbered from 0. `ListIndex` is the selected one's number, -1 for
/// none; it follows its item when others come and go. Owned by its form, and outlives the widget that shows it.
class ListBox {
public:
    [[nodiscard]] const std::vector<Text>& Items() const { return m_items; }
    [[nodiscard]] std::size_t ListCount() const { return m_items.size(); }
    /// The selected item's text; nothing when none is selected.
    [[nodiscard]] const Text* FindSelected() const;

    /// Adds an item last.
    void AddItem(Text item) { AddItem(std::move(item), m_items.size()); }
    /// Adds an item before the one at `index`, last when there is none.
    void AddItem(Text item, std::size_t index);
    /// Removes an item; does nothing when there is none. No item is selected afterwards if it was that one.
    void RemoveItem(std::size_t index);
    /// Replaces an item's text.
    void SetItem(std::size_t index, Text item);

    Property<std::int32_t> ListIndex{-1};
    Property<bool> Enabled{true};

    /// Gives the list the keyboard.
    void SetFocus();
    /// The list has got the keyboard. The form's own handlers.
    Signal<void()> GotFocus;
    Signal<void()> DblClick;

    /// The list is to have the keyboard; for its view.
    Signal<void()> FocusWanted;

    /// Attaches the view: called after each change, and at once to show what there is.
    [[nodiscard]] Connection Attach(Signal<void(ListBoxChange)>::Listener items);

private:
    void Report(ListBoxChange::Kind kind, std::size_t index) const;

    std::vector<Text> m_items;
    Signal<void(ListBoxChange)> m_mirror;
};

} // namespace tessa
