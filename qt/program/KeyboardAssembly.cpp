#include "qt/program/KeyboardAssembly.h"

#include "qt/program/BarAssembly.h"
#include "window/frmMain.h"

namespace tessa::qt {

KeyboardAssembly::KeyboardAssembly(frmMain& main, QWidget& window, BarAssembly& bar)
    : m_keys(window), m_typing(window) {
    m_keys.Down = [&main, &bar](KeyStroke key) {
        const bool leaves = key == KeyStroke{Keys::kEscape, 0} && bar.HasKeyboard();
        return leaves ? KeyUsed::No : main.Form_KeyDown(key);
    };
    m_keys.Up = [&main](KeyStroke key) { return main.Form_KeyUp(key); };
    m_typing.OverPage.ConnectForLife([&main] { main.Form_Type(); });
}

} // namespace tessa::qt
