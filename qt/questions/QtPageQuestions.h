#pragma once
#include "qt/page/QtPage.h"
#include "qt/page/QtPageTools.h"
#include "qt/questions/QtCertificates.h"
#include "qt/questions/QtCovers.h"
#include "qt/questions/QtCrashes.h"
#include "qt/questions/QtExternalLinks.h"
#include "qt/questions/QtLogins.h"
#include "qt/questions/QtPageDialogs.h"
#include "qt/questions/QtPermissions.h"
#include "qt/questions/QtQuestionBar.h"
#include "qt/questions/QtSecurityKeys.h"

namespace tessa::qt {

/// What one page asks of its user, and what covers it meanwhile.
struct QtPageQuestions {
    /// All outlive this object.
    QtPageQuestions(QtPage& page, QWidget* pageArea, AcceptedCertificates& accepted, QtDialogScheme& dialogScheme,
                    ExternalSchemes& external, SitePermissions* permissionsKept)
        : permissions(page, questions, permissionsKept),
          bar(new QtQuestionBar(questions, pageArea)),
          tools(page),
          covers(pageArea),
          certificates(page, covers, accepted),
          logins(page, covers),
          crashes(page, covers),
          dialogs(page, covers, dialogScheme),
          links(page, covers, external),
          securityKeys(covers) {
        securityKeys.FollowPage(page);
    }
    ~QtPageQuestions() { delete bar; }
    QtPageQuestions(const QtPageQuestions&) = delete;
    QtPageQuestions& operator=(const QtPageQuestions&) = delete;

    QtPermissions permissions; ///< before the questions, which tell it when they end
    PageQuestions questions;
    QPointer<QtQuestionBar> bar;
    QtPageTools tools;

    QtCovers covers;
    QtCertificates certificates;
    QtLogins logins;
    QtCrashes crashes;
    QtPageDialogs dialogs;
    QtExternalLinks links;
    QtSecurityKeys securityKeys;
};

} // namespace tessa::qt
