#include "qt/program/KeyboardAssembly.h"

#include "qt/program/BarAssembly.h"
#include "window/frmMain.h"

namespace tessa::qt {

KeyboardAssembly::KeyboardAssembly(frmMain& main, QWidget& window, BarAssembly& bar)
    : m_keys(window), m_typing(window) {
    m_keys.Down = [&main, &bar](KeyStroke key) {
        return main.Form_KeyDown(key, bar.HasKeyboard() ? KeyboardOn::Tool : KeyboardOn::Other);
    };
    m_keys.Up = [&main](KeyStroke key) { return main.Form_KeyUp(key); };
    m_keys.BeforeAccessKeys = [&main](KeyStroke key) { return main.actBar.Combinations.IsChosen(key); };
    m_typing.OverPage.ConnectForLife([&main] { main.Form_Type(); });
}

} // namespace tessa::qt
