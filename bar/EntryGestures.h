#pragma once
#include <functional>

namespace tessa {

class Tool;

/// What a user can do with an entry of an open menu beside choosing it.
class EntryGestures {
public:
    virtual ~EntryGestures() = default;

    /// Shows what can be done with the entry; false where there is nothing.
    virtual bool EntryPopup(const Tool& tool) = 0;
    /// What a click with the middle button on an entry that opens a menu does; nothing for most. To be called once no
    /// menu is open any more.
    [[nodiscard]] virtual std::function<void()> EntryMiddleClick(const Tool& tool) = 0;
    /// What the Delete key on an entry does; nothing for most. To be called once no menu is open any more.
    [[nodiscard]] virtual std::function<void()> EntryDelete(const Tool& tool) = 0;

    /// Those of a bar whose entries can only be chosen.
    [[nodiscard]] static EntryGestures& None();
};

} // namespace tessa
