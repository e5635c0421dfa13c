#include "address/CabCombo.h"

#include <algorithm>

namespace tessa {

namespace {

// Deliberate: the walk does not step back after a removal, so of two equal neighbours the second survives.
//   entry a:  [a] a b  ->  a [b]      the second a has moved to where the walk has been
void RemoveEqual(ComboTool& box, TextView entry) {
    const std::size_t count = box.ListCount();
    for (std::size_t i = 0; i < count; ++i) {
        if (i < box.ListCount() && box.List()[i] == entry) box.RemoveItem(i);
    }
}

} // namespace

namespace CabCombo {

void AutoComplete(Text& PrevText, ComboTool& Combo) {
    const TextSelection selected = Combo.Selection();
    const Text typed = Combo.Value().substr(0, selected.Start + selected.Length);
    const bool grown = typed.size() > PrevText.size();
    PrevText = typed;
    if (!grown) return;
    const auto found = std::ranges::find_if(Combo.List(), [&](const Text& item) { return item.starts_with(typed); });
    if (found == Combo.List().end()) return;
    const Text item = *found;
    Combo.Value = item;
    Combo.Selection = TextSelection{typed.size(), item.size() - typed.size()};
}

void AddFindEntry(TextView Entry, ComboTool* Tool, std::int32_t MaxItems) {
    if (!Tool) return;
    // The entry may be the box's own text or an item of its list.
    const Text entry(Entry);
    const bool first = Tool->ListCount() == 0;
    if (!first) RemoveEqual(*Tool, entry);
    Tool->InsertFirst(entry);
    // Deliberate: the first entry of all leaves the box's text alone.
    if (!first) Tool->Value = entry;
    if (std::cmp_greater(Tool->ListCount(), MaxItems)) Tool->RemoveItem(static_cast<std::size_t>(MaxItems));
}

void PutBack(const std::vector<Text>& Items, ComboTool* Tool) {
    if (!Tool) return;
    std::vector<Text> all = Tool->List();
    for (const Text& item : Items) {
        if (std::cmp_less(all.size(), kHistoryLimit) && std::ranges::find(all, item) == all.end()) all.push_back(item);
    }
    Tool->List = std::move(all);
}

} // namespace CabCombo

} // namespace tessa
