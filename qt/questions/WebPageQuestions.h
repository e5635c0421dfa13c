#pragma once
#include "qt/page/WebPage.h"
#include "qt/page/WebPageTools.h"
#include "qt/questions/Covers.h"
#include "qt/questions/Crashes.h"
#include "qt/questions/ExternalLinks.h"
#include "qt/questions/Logins.h"
#include "qt/questions/PageDialogCovers.h"
#include "qt/questions/Permissions.h"
#include "qt/questions/QuestionBar.h"
#include "qt/questions/RefusedCertificates.h"
#include "qt/questions/SecurityKeys.h"

namespace tessa::qt {

/// What one page asks of its user, and what covers it meanwhile.
struct WebPageQuestions {
    /// All outlive this object.
    WebPageQuestions(WebPage& page, QWidget* pageArea, AcceptedCertificates& accepted, DialogScheme& dialogScheme,
                     ExternalSchemes& external, SitePermissions* permissionsKept)
        : permissions(page, questions, permissionsKept),
          bar(new QuestionBar(questions, pageArea)),
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
    ~WebPageQuestions() { delete bar; }
    WebPageQuestions(const WebPageQuestions&) = delete;
    WebPageQuestions& operator=(const WebPageQuestions&) = delete;

    Permissions permissions; ///< before the questions, which tell it when they end
    PageQuestions questions;
    QPointer<QuestionBar> bar;
    WebPageTools tools;

    Covers covers;
    RefusedCertificates certificates;
    Logins logins;
    Crashes crashes;
    PageDialogCovers dialogs;
    ExternalLinks links;
    SecurityKeys securityKeys;
};

} // namespace tessa::qt
