#pragma once
#include "groups/frmRenameGroup.h"

class QWidget;

namespace tessa::qt {

/// Shows the form over `parent` until it hides. Escape and the window's close button mean Cancel.
void ShowModal(frmRenameGroup& form, QWidget* parent);

} // namespace tessa::qt
