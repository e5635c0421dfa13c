#pragma once
#include "commands/frmResize.h"

#include <QDialog>

class QHBoxLayout;

namespace tessa::qt {

/// The window of `frmResize`: lays out its controls and binds them. The form must outlive it.
class ResizeDialog : public QDialog {
public:
    explicit ResizeDialog(frmResize& form, QWidget* parent = nullptr);

private:
    QHBoxLayout* Steps(frmResize& form);
    QHBoxLayout* CloseRow(frmResize& form);
};

/// Shows the form over `parent` until it hides. Escape and the window's close button mean Close.
void ShowModal(frmResize& form, QWidget* parent);

} // namespace tessa::qt
