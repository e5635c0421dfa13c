#pragma once
#include "qt/QtCertificates.h"
#include "qt/QtCovers.h"
#include "qt/QtCrashes.h"
#include "qt/QtExternalLinks.h"
#include "qt/QtLogins.h"
#include "qt/QtPageDialogs.h"

/// What one page asks of its user, and what covers it meanwhile.
struct QtPageQuestions {
    /// All outlive this object.
    QtPageQuestions(QtPage& page, QWidget* pageArea, AcceptedCertificates& accepted, QtDialogScheme& dialogScheme,
                    ExternalSchemes& external)
        : covers(pageArea),
          certificates(page, covers, accepted),
          logins(page, covers),
          crashes(page, covers),
          dialogs(page, covers, dialogScheme),
          links(page, covers, external) {}

    QtCovers covers;
    QtCertificates certificates;
    QtLogins logins;
    QtCrashes crashes;
    QtPageDialogs dialogs;
    QtExternalLinks links;
};
