#include "tabs/PageOptions.h"

#include "tabs/Browser.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

struct TextSize {
    TextView tool;
    int level;
    TextView marked; ///< the tool whose check mark shows it
};

constexpr std::array kSizes{
    TextSize{u"mnuFontLargest", 4, u"mnuFontLargest"},
    // Deliberate: no tool has the name that is marked here, so this size never shows a check mark.
    TextSize{u"mnuFontLarger", 3, u"mnuFontLarge"},
    TextSize{u"mnuFontMedium", 2, u"mnuFontMedium"},
    TextSize{u"mnuFontSmaller", 1, u"mnuFontSmaller"},
    TextSize{u"mnuFontSmallest", 0, u"mnuFontSmallest"},
};

struct LoadSwitch {
    TextView tool;
    Setting<bool> SettingsStore::*setting;
};

constexpr std::array kSwitches{
    LoadSwitch{u"mnuLoadImages", &SettingsStore::LoadImages},
    LoadSwitch{u"mnuLoadAnimations", &SettingsStore::LoadAnimations},
    LoadSwitch{u"mnuLoadVideos", &SettingsStore::LoadVideos},
    LoadSwitch{u"mnuLoadSounds", &SettingsStore::LoadSounds},
};

void Mark(CommandBar& bar, TextView tool, bool checked) {
    if (auto* found = bar.Find(tool)) found->Checked = checked;
}

} // namespace

void PageOptions::SetTextSize(TextView Name, ::Apply Apply) {
    for (const TextSize& size : kSizes) Mark(m_actBar, size.marked, size.tool == Name);
    auto* view = m_tabs.CurrentView();
    const auto* size = std::ranges::find(kSizes, Name, &TextSize::tool);
    if (view && Apply == ::Apply::Yes && size != kSizes.end()) Browser::SetZoom(*view->Control, size->level);
    m_tabs.UpdateZoom();
}

void PageOptions::MarkTextSize() {
    const auto* view = m_tabs.CurrentView();
    // Deliberate: without a view there is no level, which counts as 0, the smallest size.
    const int level = view ? view->Control->ZoomLevel() : 0;
    const auto* size = std::ranges::find(kSizes, level, &TextSize::level);
    SetTextSize(size == kSizes.end() ? TextView(u"mnuFontMedium") : size->tool, Apply::No);
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
