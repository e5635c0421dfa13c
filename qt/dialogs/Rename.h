#pragma once
#include "groups/frmRenameGroup.h"
#include "tabs/frmRenameTab.h"

class QWidget;

namespace tessa::qt {

// Shows the form over `parent` until it hides. Escape and the window's close button mean Cancel.
void ShowModal(frmRenameGroup& form, QWidget* parent);
void ShowModal(frmRenameTab& form, QWidget* parent);

} // namespace tessa::qt
