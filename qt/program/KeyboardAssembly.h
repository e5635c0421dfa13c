#pragma once
#include "qt/base/KeyFilter.h"
#include "qt/base/Typing.h"

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class BarAssembly;

/// Who sees a key first, and where it leads.
class KeyboardAssembly {
public:
    /// All outlive it.
    KeyboardAssembly(frmMain& main, QWidget& window, BarAssembly& bar);

private:
    KeyFilter m_keys;
    Typing m_typing;
};

} // namespace tessa::qt
