#include "commands/effects/TileCommands.h"

#include "bar/ToolName.h"

#include <algorithm>

namespace tessa {

namespace {

/// More pages than that are seldom meant to be seen at once.
constexpr std::size_t kMostUnasked = 16;

template<typename Arrange>
void ShowChosen(CommandContext& context, Arrange arrange) {
    const auto chosen = context.chosen.Chosen();
    if (chosen.size() < 2) return context.tabs.Say(u"There is no other tab to show beside this one.");
    if (!TileCommands::MayShow(context.messages, chosen.size())) return;
    // Tabs may have gone behind the question.
    std::vector<std::int32_t> open;
    for (const std::int32_t each : chosen) {
        if (context.tabs.IsOpen(each)) open.push_back(each);
    }
    if (const auto layout = arrange(open)) context.tiles.Show(*layout);
}

void MarkTool(CommandContext& context, ToolName name, bool checked) {
    if (auto* tool = context.actBar.Find(name)) tool->Checked = checked;
}

} // namespace

namespace TileCommands {

bool MayShow(MessageBoxes& messages, std::size_t count) {
    if (count <= kMostUnasked) return true;
    return messages.AskOwn({.Heading = u"Show " + Decimal(static_cast<std::int64_t>(count)) + u" pages side by side?",
                            .Details = u"All of them are loaded and drawn at the same time, and each is small.",
                            .Keeps = u"&Cancel",
                            .GoesOn = u"&Show Them"});
}

void Columns(CommandContext& context) { ShowChosen(context, TileLayouts::Columns); }

void Rows(CommandContext& context) { ShowChosen(context, TileLayouts::Rows); }

void Grid(CommandContext& context) { ShowChosen(context, TileLayouts::Grid); }

void Main(CommandContext& context) {
    const std::int32_t front = context.tabs.CurrentIndex();
    ShowChosen(context, [front](const std::vector<std::int32_t>& open) {
        const bool there = std::ranges::find(open, front) != open.end();
        return TileLayouts::Main(there || open.empty() ? front : open.front(), open);
    });
}

void None(CommandContext& context) { context.tiles.Dissolve(); }

void Link(CommandContext& context) { context.tiles.ToggleLinked(); }

void ToggleHeaders(CommandContext& context) {
    context.tiles.ShowHeaders(!context.tiles.HasHeaders());
    SettingsStore store(context.settings);
    ResumeNext(store.TileHeaders.Set(context.tiles.HasHeaders()));
}

void TabBeside(CommandContext& context) {
    const auto* tab = context.strip.PopupTab();
    if (!tab) return;
    const std::int32_t index = tab->Tag;
    const auto* shown = context.tiles.Shown();
    if (shown && shown->Has(index))
        context.tiles.TakeOut(index);
    else
        context.tiles.ShowBeside(index);
}

void ShowState(CommandContext& context) {
    const auto* shown = context.tiles.Shown();
    context.actBar.Enable(u"xtrTileNone"_tool, shown != nullptr);
    context.actBar.Enable(u"xtrTileLink"_tool, shown != nullptr);
    context.actBar.Enable(u"xtrTileDividers"_tool, shown != nullptr && !shown->Full);
    MarkTool(context, u"xtrTileLink"_tool, shown && shown->Linked);
    MarkTool(context, u"xtrTileHeaders"_tool, context.tiles.HasHeaders());
}

void ShowTabState(CommandContext& context) {
    const auto* tab = context.strip.PopupTab();
    const auto* shown = context.tiles.Shown();
    const bool beside = tab && shown && shown->Has(tab->Tag);
    MarkTool(context, u"xtrTabBeside"_tool, beside);
    context.actBar.Enable(u"xtrTabBeside"_tool, beside || (tab && tab != context.pcPage.SelectedItem()));
}

} // namespace TileCommands

} // namespace tessa
