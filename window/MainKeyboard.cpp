#include "window/MainKeyboard.h"

#include "window/frmMain.h"

namespace {

constexpr std::int32_t kModifiers = Keys::kShift | Keys::kCtrl | Keys::kAlt;

void Run(frmMain& main, TextView tool) {
    if (auto* found = main.actBar.Find(tool)) main.actBar_Click(*found);
}

} // namespace

namespace MainKeyboard {

KeyUsed Form_KeyDown(frmMain& main, KeyStroke key) {
    const std::int32_t held = key.Shift & kModifiers;
    if (key.KeyCode == Keys::kTab && held == Keys::kCtrl) Run(main, u"mnuNextBrowserTab");
    if (key.KeyCode == Keys::kTab && held == (Keys::kCtrl | Keys::kShift)) Run(main, u"mnuPreviousBrowserTab");
    if (key.KeyCode == 'D' && (held & Keys::kAlt)) main.actBar.FocusTool(u"bndAddress", u"cboAddress");
    if (key.KeyCode == 'R' && (held & Keys::kAlt)) main.actBar.FocusTool(u"bndSearch", u"cboSearch");
    return main.actBar.KeyDown(key);
}

KeyUsed Form_KeyUp(frmMain& main, KeyStroke key) { return main.actBar.KeyUp(key); }

void Form_Type(frmMain& main) {
    const auto* view = main.Tabs.CurrentView();
    const auto* address = main.AddressCombo();
    if (view && address && view->Control->Blank()) main.actBar.FocusBox(*address);
}

} // namespace MainKeyboard
