#pragma once
#include "base/Signal.h"
#include "settings/SettingsStore.h"
#include "tabs/TabSet.h"

namespace tessa {

enum class Apply : bool { No = false, Yes = true };

/// Text size of the page and what pages may load, with the check marks of their menu items. Owned by the main window.
class PageOptions {
public:
    /// All outlive this object.
    PageOptions(TabSet& tabs, CommandBar& actBar, SettingsStorageFactory& settings)
        : m_tabs(tabs), m_actBar(actBar), m_settings(settings) {}

    /// Marks the text size of that tool's name and, when asked to, applies it to the selected tab's page.
    void SetTextSize(TextView Name, tessa::Apply Apply);
    /// The tool of the size at which the current page shows its text.
    void MarkTextSize();
    /// Shows the current page's text so many sizes larger, smaller when negative; stays at the ends.
    void StepTextSize(int steps);
    /// Sets the check marks of the four load switches and puts them into effect.
    void ShowLoadOptions();
    /// Turns the load switch of that tool's name and keeps its new state.
    void ToggleLoadOption(TextView Name);

    /// Brings the stored switches into effect for the engine.
    Signal<void()> ApplyLoadOptions;

private:
    TabSet& m_tabs;
    CommandBar& m_actBar;
    SettingsStorageFactory& m_settings;
};

} // namespace tessa
