#include "qt/dialogs/QtForms.h"

#include "qt/dialogs/QtAbout.h"
#include "qt/dialogs/QtAddFavorite.h"
#include "qt/dialogs/QtDefBrowserDialog.h"
#include "qt/dialogs/QtGroupEditor.h"
#include "qt/dialogs/QtInternetOptionsDialog.h"
#include "qt/dialogs/QtOrganizeFavorites.h"
#include "qt/dialogs/QtRenameGroup.h"
#include "qt/dialogs/QtResizeDialog.h"
#include "qt/dialogs/QtSessionsDialog.h"
#include "qt/dialogs/QtSettingsDialog.h"
#include "qt/dialogs/QtSplash.h"

namespace tessa::qt {

void QtForms::Show(frmAddFavorite& form) { ShowModal(form, &m_window); }
void QtForms::Show(frmDefBrowser& form) { ShowModal(form, m_splash.Window()); }
void QtForms::Show(frmInternetOptions& form) { ShowModal(form, &m_window); }
void QtForms::Show(frmOrganizeFavorites& form) { ShowModal(form, &m_window); }
void QtForms::Show(frmRenameGroup& form) { ShowModal(form, &m_window); }
void QtForms::Show(frmResize& form) { ShowModal(form, &m_window); }
void QtForms::Show(frmSessions& form) { ShowModal(form, &m_window); }
void QtForms::Show(frmSettings& form) { ShowModal(form, &m_window); }
void QtForms::Show(frmSplash& form) { ShowModal(form, &m_window); }
void QtForms::Show(frmTessaGroup& form) { ShowModal(form, &m_window); }

} // namespace tessa::qt
