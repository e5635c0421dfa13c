#include "window/MainKeyboard.h"

namespace tessa {

void MainKeyboard::Run(const WindowKey& own) {
    if (own.BoxOn) return m_actBar.FocusTool(*own.BoxOn, own.Tool);
    if (auto* found = m_actBar.Find(own.Tool)) m_dispatcher.actBar_Click(*found);
}

KeyUsed MainKeyboard::Form_KeyDown(KeyStroke key, KeyboardOn keyboard) {
    if (keyboard == KeyboardOn::Tool && key == KeyStroke{Keys::kEscape, 0}) return KeyUsed::No;
    if (const auto* own = WindowKeys::Find(key); own && !m_actBar.Combinations.IsChosen(key)) Run(*own);
    const bool ends = key == KeyStroke{Keys::kEscape, 0} && m_choice.Any();
    if (ends) m_choice.End();
    const KeyUsed used = m_actBar.KeyDown(key);
    return ends ? KeyUsed::Yes : used;
}

void MainKeyboard::Form_Type() {
    const auto* view = m_tabs.CurrentView();
    const auto* address = m_tabs.AddressCombo();
    if (view && address && view->Control->Blank()) m_actBar.FocusBox(*address);
}

} // namespace tessa
