#include "qt/program/KeyboardAssembly.h"

#include "qt/program/BarAssembly.h"
#include "window/frmMain.h"

namespace tessa::qt {

KeyboardAssembly::KeyboardAssembly(frmMain& main, QWidget& window, BarAssembly& bar)
    : m_main(main), m_bar(bar), m_keys(window, *this), m_typing(window) {
    m_typing.OverPage.ConnectForLife([&main] { main.Form_Type(); });
}

KeyUsed KeyboardAssembly::KeyDown(KeyStroke key) {
    return m_main.Form_KeyDown(key, m_bar.HasKeyboard() ? KeyboardOn::Tool : KeyboardOn::Other);
}

KeyUsed KeyboardAssembly::KeyUp(KeyStroke key) { return m_main.Form_KeyUp(key); }

bool KeyboardAssembly::BeforeAccessKeys(KeyStroke key) const { return m_main.actBar.Combinations.IsChosen(key); }

} // namespace tessa::qt
