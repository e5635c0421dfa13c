#pragma once

class QWidget;

namespace tessa {
class frmRenameGroup;
class frmRenameTab;
} // namespace tessa

namespace tessa::qt {

// Shows the form over `parent` until it hides. Escape and the window's close button mean Cancel.
void ShowModal(frmRenameGroup& form, QWidget* parent);
void ShowModal(frmRenameTab& form, QWidget* parent);

} // namespace tessa::qt
