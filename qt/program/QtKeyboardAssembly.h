#pragma once
#include "qt/base/QtKeys.h"
#include "qt/base/QtTyping.h"

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class QtBarAssembly;

/// Who sees a key first, and where it leads.
class QtKeyboardAssembly {
public:
    /// All outlive it.
    QtKeyboardAssembly(frmMain& main, QWidget& window, QtBarAssembly& bar);

private:
    QtKeys m_keys;
    QtTyping m_typing;
};

} // namespace tessa::qt
