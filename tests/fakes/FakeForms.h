#pragma once
#include "forms/FormHost.h"

#include <functional>

namespace tessa {

/// Shows no dialog: each does at once what the test says that the user does in it, or nothing.
class FakeForms : public FormHost {
public:
    void Show(frmAddFavorite& form) override { Use(inAddFavorite, form); }
    void Show(frmDefBrowser& form) override { Use(inDefBrowser, form); }
    void Show(frmGroupCheck& form) override { Use(inGroupCheck, form); }
    void Show(frmGroupCompare& form) override { Use(inGroupCompare, form); }
    void Show(frmInternetOptions& form) override { Use(inInternetOptions, form); }
    void Show(frmOrganizeFavorites& form) override { Use(inOrganizeFavorites, form); }
    void Show(frmRenameGroup& form) override { Use(inRenameGroup, form); }
    void Show(frmRenameTab& form) override { Use(inRenameTab, form); }
    void Show(frmResize& form) override { Use(inResize, form); }
    void Show(frmSessions& form) override { Use(inSessions, form); }
    void Show(frmSettings& form) override { Use(inSettings, form); }
    void Show(frmSplash& form) override { Use(inAbout, form); }
    void Show(frmTessaGroup& form) override { Use(inTessaGroup, form); }

    std::function<void(frmAddFavorite&)> inAddFavorite;
    std::function<void(frmDefBrowser&)> inDefBrowser;
    std::function<void(frmGroupCheck&)> inGroupCheck;
    std::function<void(frmGroupCompare&)> inGroupCompare;
    std::function<void(frmInternetOptions&)> inInternetOptions;
    std::function<void(frmOrganizeFavorites&)> inOrganizeFavorites;
    std::function<void(frmRenameGroup&)> inRenameGroup;
    std::function<void(frmRenameTab&)> inRenameTab;
    std::function<void(frmResize&)> inResize;
    std::function<void(frmSessions&)> inSessions;
    std::function<void(frmSettings&)> inSettings;
    std::function<void(frmSplash&)> inAbout;
    std::function<void(frmTessaGroup&)> inTessaGroup;

private:
    template<typename Form>
    static void Use(const std::function<void(Form&)>& user, Form& form) {
        if (user) user(form);
    }
};

} // namespace tessa
