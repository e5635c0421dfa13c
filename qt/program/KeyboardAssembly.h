#pragma once
#include "qt/base/KeyFilter.h"
#include "qt/base/Typing.h"

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class BarAssembly;
class TileArea;

/// Who sees a key first, and where it leads.
class KeyboardAssembly final : private KeyTaker {
public:
    /// All outlive it.
    KeyboardAssembly(frmMain& main, QWidget& window, BarAssembly& bar, const TileArea& tiles);

private:
    KeyUsed KeyDown(KeyStroke key) override;
    KeyUsed KeyUp(KeyStroke key) override;
    [[nodiscard]] bool BeforeAccessKeys(KeyStroke key) const override;

    frmMain& m_main;
    BarAssembly& m_bar;
    const TileArea& m_tiles;
    KeyFilter m_keys;
    Typing m_typing;
};

} // namespace tessa::qt
