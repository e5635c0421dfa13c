#include "tabs/PageOptions.h"

#include "bar/ToolName.h"
#include "tabs/Browser.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tessa {

namespace {

struct TextSize {
    ToolName tool;
    int level;
    bool marked = true; ///< whether the tool's check mark shows it
};

constexpr std::array kSizes{
    TextSize{u"mnuFontLargest"_tool, 4},
    // Deliberate: this size never shows a check mark.
    TextSize{u"mnuFontLarger"_tool, 3, false},
    TextSize{u"mnuFontMedium"_tool, 2},
    TextSize{u"mnuFontSmaller"_tool, 1},
    TextSize{u"mnuFontSmallest"_tool, 0},
};

struct LoadSwitch {
    ToolName tool;
    Setting<bool> SettingsStore::*setting;
};

constexpr std::array kSwitches{
    LoadSwitch{u"mnuLoadImages"_tool, &SettingsStore::LoadImages},
    LoadSwitch{u"mnuLoadAnimations"_tool, &SettingsStore::LoadAnimations},
    LoadSwitch{u"mnuLoadVideos"_tool, &SettingsStore::LoadVideos},
    LoadSwitch{u"mnuLoadSounds"_tool, &SettingsStore::LoadSounds},
};

void Mark(CommandBar& bar, ToolName tool, bool checked) {
    if (auto* found = bar.Find(tool)) found->Checked = checked;
}

} // namespace

void PageOptions::SetTextSize(TextView Name, tessa::Apply Apply) {
    for (const TextSize& size : kSizes) {
        if (size.marked) Mark(m_actBar, size.tool, size.tool == Name);
    }
    auto* view = m_tabs.CurrentView();
    const auto* size = std::ranges::find(kSizes, Name, &TextSize::tool);
    if (view && Apply == tessa::Apply::Yes && size != kSizes.end()) {
        Browser::SetZoom(*view->Control, size->level);
        for (auto* each : m_tabs.Followers()) Browser::SetZoom(*each->Control, size->level);
    }
    m_tabs.UpdateZoom();
}

void PageOptions::MarkTextSize() {
    const auto* view = m_tabs.CurrentView();
    // Deliberate: without a view there is no level, which counts as 0, the smallest size.
    const int level = view ? view->Control->ZoomLevel() : 0;
    const auto* size = std::ranges::find(kSizes, level, &TextSize::level);
    SetTextSize(size == kSizes.end() ? u"mnuFontMedium"_tool : size->tool, Apply::No);
}

void PageOptions::StepTextSize(int steps) {
    auto* view = m_tabs.CurrentView();
    if (!view || !view->Control->Document()) return;
    const auto [smallest, largest] = std::ranges::minmax(kSizes, {}, &TextSize::level);
    const int level = std::clamp(view->Control->ZoomLevel() + steps, smallest.level, largest.level);
    SetTextSize(std::ranges::find(kSizes, level, &TextSize::level)->tool, Apply::Yes);
}

void PageOptions::ShowLoadOptions() {
    const SettingsStore store(m_settings);
    for (const LoadSwitch& each : kSwitches) Mark(m_actBar, each.tool, (store.*each.setting).Get());
    ApplyLoadOptions();
}

void PageOptions::ToggleLoadOption(TextView Name) {
    auto* tool = m_actBar.Find(Name);
    const auto* each = std::ranges::find(kSwitches, Name, &LoadSwitch::tool);
    if (!tool || each == kSwitches.end()) return;
    tool->Checked = !tool->Checked();
    {
        SettingsStore store(m_settings);
        ResumeNext((store.*each->setting).Set(tool->Checked()));
    }
    // The switches are read anew, after what was written has reached the store.
    ApplyLoadOptions();
}

} // namespace tessa
