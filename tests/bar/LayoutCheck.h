#pragma once
#include "bar/BandRules.h"
#include "bar/CommandBarLayout.h"
#include "bar/KeyRules.h"
#include "commands/DesignTimeBar.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>

namespace tessa {

/// What holds of a bar whatever file was loaded into it; says what does not, nothing when all is well.
inline std::string WrongAfterLoading(std::string_view bytes) {
    CommandBar bar;
    DesignTimeBar::Make(bar);
    const std::size_t designed = bar.Bands().size();
    CommandBarLayout::Load(bar, bytes);
    if (bar.Bands().size() < designed) return "a designed band is gone";
    std::set<const Tool*> boxes;
    for (const auto& band : bar.Bands()) {
        if (band->IsUserMade() && (band->Kind() != BandKind::Toolbar || band->Caption().empty()))
            return "a strange band";
        if (band->Kind() == BandKind::MenuBar && !band->Visible()) return "the menu bar is hidden";
        std::set<const Tool*> listed;
        for (const BandEntry& entry : band->Entries()) {
            if (!entry.Item) return "an entry without a tool";
            if (!listed.insert(entry.Item.get()).second) return "a tool twice on a band";
            if (!BandRules::MayList(bar, *band, *entry.Item)) return "a tool where it must not be";
            if (entry.Item->Kind() == ToolKind::Combo && !boxes.insert(entry.Item.get()).second) return "a box twice";
        }
    }
    std::set<std::string> keys;
    for (const Shortcut& each : bar.Shortcuts()) {
        if (!bar.Find(each.ToolName)) return "keys of no tool";
        if (!keys.insert(KeyWords::Word(each.Key)).second) return "a combination for two tools";
        const auto designed = bar.Combinations.DesignedFor(each.ToolName);
        if (!KeyRules::Refusal(each.Key).empty() && std::ranges::count(designed, each.Key) == 0)
            return "a combination that no tool may have";
    }
    const std::string saved = CommandBarLayout::Save(bar);
    CommandBar again;
    DesignTimeBar::Make(again);
    CommandBarLayout::Load(again, saved);
    return CommandBarLayout::Save(again) == saved ? "" : "what was saved comes back otherwise";
}

} // namespace tessa
