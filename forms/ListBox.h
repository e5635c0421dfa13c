#pragma once
#include "base/Text.h"
#include "forms/ListModel.h"

namespace tessa {

/// A list of texts that takes the keyboard. Two of its items may be alike.
class ListBox : public ListModel<Text> {
public:
    /// Adds an item last.
    void AddItem(Text item) { Insert(ListCount(), std::move(item)); }
    /// Adds an item before the one at `index`, last when there is none.
    void AddItem(Text item, std::size_t index) { Insert(index, std::move(item)); }
    /// Removes an item; does nothing when there is none. No item is selected afterwards if it was that one.
    void RemoveItem(std::size_t index) { Remove(index); }

    Property<bool> Enabled{true};

    /// Gives the list the keyboard.
    void SetFocus() {
        FocusWanted();
        GotFocus();
    }
    /// The list has got the keyboard. The form's own handlers.
    Signal<void()> GotFocus;
    Signal<void()> DblClick;

    /// The list is to have the keyboard; for its view.
    Signal<void()> FocusWanted;
};

} // namespace tessa
