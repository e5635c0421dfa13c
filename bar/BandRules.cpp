#include "bar/BandRules.h"

#include <algorithm>
#include <set>

namespace tessa {

namespace {

constexpr std::size_t kLongestCaption = 60;

/// Whether the menu named `from` opens the band, itself or through its sub-menus.
bool Reaches(const CommandBar& bar, TextView from, const Band& band, std::set<Text>& seen) {
    if (from.empty() || !seen.insert(Text(from)).second) return false;
    if (from == band.Name()) return true;
    const Band* menu = bar.FindBand(from);
    return menu && std::ranges::any_of(menu->Entries(), [&](const BandEntry& entry) {
               return Reaches(bar, entry.Item->SubBand, band, seen);
           });
}

} // namespace

namespace BandRules {

bool MayList(const CommandBar& bar, const Band& band, const Tool& tool) {
    if (tool.Kind() != ToolKind::Button && band.Kind() != BandKind::Toolbar) return false;
    std::set<Text> seen;
    return !Reaches(bar, tool.SubBand, band, seen);
}

void Mend(CommandBar& bar) {
    std::set<const Tool*> boxes;
    for (const auto& band : bar.Bands()) {
        std::set<const Tool*> listed;
        for (std::size_t i = 0; i < band->Entries().size();) {
            const Tool& tool = *band->Entries()[i].Item;
            const bool again = !listed.insert(&tool).second;
            const bool second = tool.Kind() == ToolKind::Combo && !boxes.insert(&tool).second;
            if (again || second || !MayList(bar, *band, tool))
                band->RemoveAt(i);
            else
                ++i;
        }
    }
}

Text CleanCaption(TextView caption) {
    Text clean;
    for (const char16_t unit : caption) {
        const bool control = unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
        if (!control && (unit != u' ' || !clean.empty())) clean += unit;
    }
    if (clean.size() > kLongestCaption) clean.resize(kLongestCaption);
    DropHalf(clean);
    while (!clean.empty() && clean.back() == u' ') clean.pop_back();
    return clean;
}

} // namespace BandRules

} // namespace tessa
