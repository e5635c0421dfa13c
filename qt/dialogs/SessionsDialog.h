#pragma once
#include "base/Signal.h"
#include "sessions/frmSessions.h"

#include <QDialog>

class QListWidget;
class QTreeWidget;

namespace tessa::qt {

/// The window of `frmSessions`: sessions on the left, the pages of the selected one on the right. The form must
/// outlive it.
class SessionsDialog : public QDialog {
public:
    explicit SessionsDialog(frmSessions& form, QWidget* parent = nullptr);

private:
    QWidget* Sessions();
    QWidget* Pages();
    QWidget* Buttons();
    void BindSessions();
    void BindPages();

    frmSessions& m_form;
    QListWidget* m_sessions;
    QTreeWidget* m_pages;
    Connections m_connections;
};

/// Shows the form over `parent` until it hides.
void ShowModal(frmSessions& form, QWidget* parent);

} // namespace tessa::qt
