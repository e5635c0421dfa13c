#include "window/MainKeyboard.h"

namespace tessa {

namespace {

constexpr std::int32_t kModifiers = Keys::kShift | Keys::kCtrl | Keys::kAlt;

} // namespace

void MainKeyboard::Run(ToolName tool) {
    if (auto* found = m_actBar.Find(tool)) m_dispatcher.actBar_Click(*found);
}

KeyUsed MainKeyboard::Form_KeyDown(KeyStroke key, KeyboardOn keyboard) {
    if (keyboard == KeyboardOn::Tool && key == KeyStroke{Keys::kEscape, 0}) return KeyUsed::No;
    const std::int32_t held = key.Shift & kModifiers;
    if (key.KeyCode == Keys::kTab && held == Keys::kCtrl) Run(u"mnuNextBrowserTab"_tool);
    if (key.KeyCode == Keys::kTab && held == (Keys::kCtrl | Keys::kShift)) Run(u"mnuPreviousBrowserTab"_tool);
    if (key.KeyCode == 'D' && (held & Keys::kAlt)) m_actBar.FocusTool(u"bndAddress"_band, u"cboAddress"_tool);
    if (key.KeyCode == 'R' && (held & Keys::kAlt)) m_actBar.FocusTool(u"bndSearch"_band, u"cboSearch"_tool);
    return m_actBar.KeyDown(key);
}

void MainKeyboard::Form_Type() {
    const auto* view = m_tabs.CurrentView();
    const auto* address = m_tabs.AddressCombo();
    if (view && address && view->Control->Blank()) m_actBar.FocusBox(*address);
}

} // namespace tessa
