#pragma once
#include "mainwindow/frmSplash.h"

#include <QDialog>

/// `frmSplash` as the About box: its panel, the build information to copy, and its button. The form must outlive it.
class QtAbout : public QDialog {
public:
    explicit QtAbout(frmSplash& form, QWidget* parent = nullptr);

private:
    QWidget* Information();
    QWidget* Buttons();

    frmSplash& m_form;
};

/// Shows the form over `parent` until it hides.
void ShowModal(frmSplash& form, QWidget* parent);
