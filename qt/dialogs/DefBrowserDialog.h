#pragma once
#include "window/frmDefBrowser.h"

#include <QDialog>

namespace tessa::qt {

/// The window of `frmDefBrowser`: lays out its controls and binds them. The form must outlive it.
class DefBrowserDialog : public QDialog {
public:
    explicit DefBrowserDialog(frmDefBrowser& form, QWidget* parent = nullptr);

private:
    QWidget* Buttons();

    frmDefBrowser& m_form;
};

/// Shows the form over `parent` until it hides. Escape and the window's close button mean No.
void ShowModal(frmDefBrowser& form, QWidget* parent);

} // namespace tessa::qt
