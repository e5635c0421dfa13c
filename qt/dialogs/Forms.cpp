#include "qt/dialogs/Forms.h"

#include "qt/dialogs/About.h"
#include "qt/dialogs/AddFavorite.h"
#include "qt/dialogs/DefBrowserDialog.h"
#include "qt/dialogs/GroupCheckDialog.h"
#include "qt/dialogs/GroupCompareDialog.h"
#include "qt/dialogs/GroupEditor.h"
#include "qt/dialogs/InternetOptionsDialog.h"
#include "qt/dialogs/OrganizeFavorites.h"
#include "qt/dialogs/RenameGroup.h"
#include "qt/dialogs/RenameTab.h"
#include "qt/dialogs/ResizeDialog.h"
#include "qt/dialogs/SessionsDialog.h"
#include "qt/dialogs/SettingsDialog.h"
#include "qt/dialogs/Splash.h"

#include <QApplication>

namespace tessa::qt {

QWidget* Forms::Front() const {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : &m_window;
}

void Forms::Show(frmAddFavorite& form) { ShowModal(form, &m_window); }
void Forms::Show(frmDefBrowser& form) { ShowModal(form, m_splash.Window()); }
void Forms::Show(frmGroupCheck& form) { ShowModal(form, Front()); }
void Forms::Show(frmGroupCompare& form) { ShowModal(form, Front()); }
void Forms::Show(frmInternetOptions& form) { ShowModal(form, &m_window); }
void Forms::Show(frmOrganizeFavorites& form) { ShowModal(form, &m_window); }
void Forms::Show(frmRenameGroup& form) { ShowModal(form, &m_window); }
void Forms::Show(frmRenameTab& form) { ShowModal(form, &m_window); }
void Forms::Show(frmResize& form) { ShowModal(form, &m_window); }
void Forms::Show(frmSessions& form) { ShowModal(form, &m_window); }
void Forms::Show(frmSettings& form) { ShowModal(form, &m_window); }
void Forms::Show(frmSplash& form) { ShowModal(form, &m_window); }
void Forms::Show(frmTessaGroup& form) { ShowModal(form, &m_window); }

} // namespace tessa::qt
