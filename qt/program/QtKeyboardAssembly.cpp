#include "qt/program/QtKeyboardAssembly.h"

#include "qt/program/QtBarAssembly.h"
#include "window/frmMain.h"

namespace tessa::qt {

QtKeyboardAssembly::QtKeyboardAssembly(frmMain& main, QWidget& window, QtBarAssembly& bar)
    : m_keys(window), m_typing(window) {
    m_keys.Down = [&main, &bar](KeyStroke key) {
        const bool leaves = key == KeyStroke{Keys::kEscape, 0} && bar.HasKeyboard();
        return leaves ? KeyUsed::No : main.Form_KeyDown(key);
    };
    m_keys.Up = [&main](KeyStroke key) { return main.Form_KeyUp(key); };
    m_typing.OverPage.ConnectForLife([&main] { main.Form_Type(); });
}

} // namespace tessa::qt
