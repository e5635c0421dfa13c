#pragma once

namespace tessa {

class frmAddFavorite;
class frmDefBrowser;
class frmGroupCheck;
class frmGroupCompare;
class frmInternetOptions;
class frmOrganizeFavorites;
class frmRenameGroup;
class frmRenameTab;
class frmResize;
class frmSessions;
class frmSettings;
class frmSplash;
class frmTessaGroup;

/// Shows the program's dialogs: each until its form hides, and only then it returns. Owned by the program's entry.
class FormHost {
public:
    virtual ~FormHost() = default;

    virtual void Show(frmAddFavorite& form) = 0;
    virtual void Show(frmDefBrowser& form) = 0;
    virtual void Show(frmGroupCheck& form) = 0;
    virtual void Show(frmGroupCompare& form) = 0;
    virtual void Show(frmInternetOptions& form) = 0;
    virtual void Show(frmOrganizeFavorites& form) = 0;
    virtual void Show(frmRenameGroup& form) = 0;
    virtual void Show(frmRenameTab& form) = 0;
    virtual void Show(frmResize& form) = 0;
    virtual void Show(frmSessions& form) = 0;
    virtual void Show(frmSettings& form) = 0;
    /// As the About box.
    virtual void Show(frmSplash& form) = 0;
    virtual void Show(frmTessaGroup& form) = 0;
};

} // namespace tessa
