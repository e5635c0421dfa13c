#include "commands/effects/TabGroupCommands.h"

#include "bar/ToolName.h"
#include "base/Captions.h"
#include "commands/effects/SeveralTabs.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr std::size_t kLongestName = 30; // units

struct ColourTool {
    ToolName name;
    TabColour colour;
};
constexpr std::array kColourTools{
    ColourTool{u"xtrTabGroupRed"_tool, TabColour::Red},       ColourTool{u"xtrTabGroupOrange"_tool, TabColour::Orange},
    ColourTool{u"xtrTabGroupYellow"_tool, TabColour::Yellow}, ColourTool{u"xtrTabGroupGreen"_tool, TabColour::Green},
    ColourTool{u"xtrTabGroupBlue"_tool, TabColour::Blue},     ColourTool{u"xtrTabGroupPurple"_tool, TabColour::Purple},
    ColourTool{u"xtrTabGroupGrey"_tool, TabColour::Grey},
};

constexpr std::array kOfGroup{
    u"xtrTabGroupFold"_tool,  u"xtrTabGroupSave"_tool,  u"xtrTabGroupEdit"_tool,     u"xtrTabGroupReload"_tool,
    u"xtrTabGroupSleep"_tool, u"xtrTabGroupMute"_tool,  u"xtrTabGroupColour"_tool,   u"xtrTabGroupToEnd"_tool,
    u"xtrTabGroupOut"_tool,   u"xtrTabGroupClose"_tool, u"xtrTabGroupDissolve"_tool,
};

TabGroup* PopupGroup(CommandContext& context) { return context.pcPage.FindGroup(context.strip.PopupGroup); }

std::vector<std::int32_t> PopupTabs(CommandContext& context) {
    return context.tabGroups.TabsOf(context.strip.PopupGroup);
}

void Mark(CommandContext& context, ToolName name, bool checked) {
    if (auto* tool = context.actBar.Find(name)) tool->Checked = checked;
}

void Word(CommandContext& context, ToolName name, TextView caption) {
    if (auto* tool = context.actBar.Find(name)) tool->Caption = Text(caption);
}

// The name of a group as a menu shows it.
Text MenuName(const TabGroup& group) {
    const Text name = OneLine(group.Name());
    const TextView shown = FirstUnits(name, kLongestName);
    return MenuCaption(Text(shown) + (shown.size() < name.size() ? u"..." : u""));
}

// The group that the tab stands beside, at its left or else at its right.
const TabGroup* GroupBeside(const CommandContext& context, const Tab& tab) {
    const std::size_t position = context.pcPage.PositionOf(&tab);
    for (const std::size_t each : {position - 1, position + 1}) {
        const auto* other = context.pcPage.FindAt(each);
        if (other && other->Group()) return other->Group();
    }
    return nullptr;
}

} // namespace

namespace TabGroupCommands {

void Fold(CommandContext& context) {
    if (auto* group = PopupGroup(context)) context.pcPage.SetFolded(group, !group->Folded());
}

void SaveBack(CommandContext& context) { context.groups.SaveBack(context.strip.PopupGroup); }

void Edit(CommandContext& context) {
    if (const auto* source = context.tabGroups.FileOf(context.strip.PopupGroup))
        context.groups.OrganizeTessaGroup(Text(source->Path));
}

void ReloadAll(CommandContext& context) { SeveralTabs::Refresh(context, PopupTabs(context)); }

void SleepAll(CommandContext& context) { SeveralTabs::Sleep(context, PopupTabs(context)); }

void MuteAll(CommandContext& context) { SeveralTabs::Mute(context, PopupTabs(context)); }

void Paint(CommandContext& context, const Tool& tool) {
    const auto found = std::ranges::find(kColourTools, TextView(tool.Name()), &ColourTool::name);
    if (found != kColourTools.end()) context.tabGroups.ChooseColour(context.strip.PopupGroup, found->colour);
}

void MoveToEnd(CommandContext& context) { context.tabGroups.MoveToEnd(context.strip.PopupGroup); }

void TakeFrontOut(CommandContext& context) {
    const auto* front = context.pcPage.SelectedItem();
    if (front && front->Group() && front->Group() == PopupGroup(context)) context.tabGroups.TakeOut(front->Tag);
}

void Dissolve(CommandContext& context) {
    for (const std::int32_t each : PopupTabs(context)) context.tabGroups.TakeOut(each);
}

void CloseAll(CommandContext& context) {
    const auto tabs = PopupTabs(context);
    if (tabs.empty()) return;
    // The last tab of a window does not close by itself.
    if (tabs.size() == context.pcPage.Count()) context.tabs.GetNewBrowser(InFront::Yes);
    const Text name = OneLine(PopupGroup(context)->Name());
    SeveralTabs::Close(context, tabs);
    SeveralTabs::SayClosed(context, u"The tabs of " + name + u" were closed.");
}

void ShowState(CommandContext& context) {
    const auto* group = PopupGroup(context);
    for (const ToolName each : kOfGroup) context.actBar.Enable(each, group != nullptr);
    if (!group) return;
    const auto* front = context.pcPage.SelectedItem();
    Word(context, u"xtrTabGroupFold"_tool, group->Folded() ? u"Un&fold" : u"&Fold");
    Mark(context, u"xtrTabGroupMute"_tool, SeveralTabs::AllMuted(context, PopupTabs(context)));
    context.actBar.Enable(u"xtrTabGroupSave"_tool, context.groups.IsToSave(group->Id()));
    context.actBar.Enable(u"xtrTabGroupOut"_tool, front && front->Group() == group);
    for (const ColourTool& each : kColourTools) Mark(context, each.name, group->Colour() == each.colour);
}

void Pin(CommandContext& context) {
    if (auto* tab = context.strip.PopupTab()) context.pcPage.SetPinned(tab, !tab->Pinned());
}

void InGroup(CommandContext& context) {
    const auto* tab = context.strip.PopupTab();
    if (!tab) return;
    if (tab->Group()) return context.tabGroups.TakeOut(tab->Tag);
    if (const auto* group = GroupBeside(context, *tab)) context.tabGroups.Add(tab->Tag, group->Id());
}

void ShowTabState(CommandContext& context) {
    const auto* tab = context.strip.PopupTab();
    Mark(context, u"xtrTabPin"_tool, tab && tab->Pinned());
    const auto* group = tab ? tab->Group() : nullptr;
    const auto* offered = tab && !group ? GroupBeside(context, *tab) : group;
    Mark(context, u"xtrTabInGroup"_tool, group != nullptr);
    context.actBar.Enable(u"xtrTabInGroup"_tool, offered != nullptr);
    Word(context, u"xtrTabInGroup"_tool, offered ? u"In the &Group " + MenuName(*offered) : u"In the &Group");
}

} // namespace TabGroupCommands

} // namespace tessa
