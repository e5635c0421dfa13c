#pragma once
#include "window/frmSplash.h"

#include <QDialog>

namespace tessa::qt {

/// `frmSplash` as the About box: its panel, the build information to copy, and its button. The form must outlive it.
class About : public QDialog {
public:
    /// `notice` is said below the information; nothing when it is empty.
    About(frmSplash& form, const QString& notice, QWidget* parent = nullptr);

private:
    QWidget* Information();
    QWidget* Notice(const QString& notice);
    QWidget* Buttons();

    frmSplash& m_form;
};

/// Shows the form over `parent` until it hides.
void ShowModal(frmSplash& form, QWidget* parent);

} // namespace tessa::qt
