#pragma once
#include "tabs/frmRenameTab.h"

class QWidget;

namespace tessa::qt {

/// Shows the form over `parent` until it hides. Escape and the window's close button mean Cancel.
void ShowModal(frmRenameTab& form, QWidget* parent);

} // namespace tessa::qt
