#pragma once
#include "base/Signal.h"
#include "settings/frmInternetOptions.h"

#include <QDialog>

class QFormLayout;
class QHBoxLayout;
class QVBoxLayout;

namespace tessa::qt {

class PageList;

/// The window of `frmInternetOptions`: lays out its controls and binds them. The form must outlive it.
class InternetOptionsDialog : public QDialog {
public:
    explicit InternetOptionsDialog(frmInternetOptions& form, QWidget* parent = nullptr);

private:
    QWidget* GeneralPage();
    QWidget* ProgramsPage();
    QWidget* PrivacyPage();
    QWidget* SitesPage();
    QWidget* HistoryPage();
    QWidget* ClearPage();
    QWidget* ConnectionPage();
    QWidget* Buttons();
    /// What is missing in a box is led to, on whatever page it is.
    void LeadTo(QWidget& page, TextBox& box);

    frmInternetOptions& m_form;
    PageList* m_pages = nullptr;
    Connections m_connections;
};

/// Shows the form over `parent` until it hides; `form.Apply` then tells OK from Cancel.
void ShowModal(frmInternetOptions& form, QWidget* parent);

} // namespace tessa::qt
