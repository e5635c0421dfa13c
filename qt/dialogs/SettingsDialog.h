#pragma once
#include "settings/frmSettings.h"

#include <QDialog>

class QVBoxLayout;

namespace tessa::qt {

/// The window of `frmSettings`: lays out its controls and binds them. The form must outlive it.
class SettingsDialog : public QDialog {
public:
    explicit SettingsDialog(frmSettings& form, QWidget* parent = nullptr);

private:
    QWidget* GeneralPage();
    QWidget* Buttons();
    void AddLimit(QVBoxLayout& rows);

    frmSettings& m_form;
};

/// Shows the form over `parent` until it hides; `form.Apply` then tells OK from Cancel.
void ShowModal(frmSettings& form, QWidget* parent);

} // namespace tessa::qt
