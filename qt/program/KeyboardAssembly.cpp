#include "qt/program/KeyboardAssembly.h"

#include "qt/program/BarAssembly.h"
#include "qt/tiles/TileArea.h"
#include "window/frmMain.h"

namespace tessa::qt {

KeyboardAssembly::KeyboardAssembly(frmMain& main, QWidget& window, BarAssembly& bar, const TileArea& tiles)
    : m_main(main), m_bar(bar), m_tiles(tiles), m_keys(window, *this), m_typing(window) {
    m_typing.OverPage.ConnectForLife([&main] { main.Form_Type(); });
}

KeyUsed KeyboardAssembly::KeyDown(KeyStroke key) {
    const bool isOnTool = m_bar.HasKeyboard() || m_tiles.hasFocus();
    return m_main.Form_KeyDown(key, isOnTool ? KeyboardOn::Tool : KeyboardOn::Other);
}

KeyUsed KeyboardAssembly::KeyUp(KeyStroke key) { return m_main.Form_KeyUp(key); }

bool KeyboardAssembly::BeforeAccessKeys(KeyStroke key) const { return m_main.actBar.Combinations.IsChosen(key); }

} // namespace tessa::qt
