#include "window/MainKeyboard.h"

#include "bar/ToolName.h"
#include "window/frmMain.h"

namespace {

constexpr std::int32_t kModifiers = Keys::kShift | Keys::kCtrl | Keys::kAlt;

void Run(frmMain& main, ToolName tool) {
    if (auto* found = main.actBar.Find(tool)) main.actBar_Click(*found);
}

} // namespace

namespace MainKeyboard {

KeyUsed Form_KeyDown(frmMain& main, KeyStroke key) {
    const std::int32_t held = key.Shift & kModifiers;
    if (key.KeyCode == Keys::kTab && held == Keys::kCtrl) Run(main, u"mnuNextBrowserTab"_tool);
    if (key.KeyCode == Keys::kTab && held == (Keys::kCtrl | Keys::kShift)) Run(main, u"mnuPreviousBrowserTab"_tool);
    if (key.KeyCode == 'D' && (held & Keys::kAlt)) main.actBar.FocusTool(u"bndAddress"_band, u"cboAddress"_tool);
    if (key.KeyCode == 'R' && (held & Keys::kAlt)) main.actBar.FocusTool(u"bndSearch"_band, u"cboSearch"_tool);
    return main.actBar.KeyDown(key);
}

KeyUsed Form_KeyUp(frmMain& main, KeyStroke key) { return main.actBar.KeyUp(key); }

void Form_Type(frmMain& main) {
    const auto* view = main.Tabs.CurrentView();
    const auto* address = main.AddressCombo();
    if (view && address && view->Control->Blank()) main.actBar.FocusBox(*address);
}

} // namespace MainKeyboard
