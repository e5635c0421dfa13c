#pragma once
#include "forms/FormHost.h"

class QWidget;

namespace tessa::qt {

class Splash;

/// Shows each form in its dialog, over the main window.
class Forms final : public FormHost {
public:
    /// Both outlive it.
    Forms(QWidget& window, Splash& splash) : m_window(window), m_splash(splash) {}

    void Show(frmAddFavorite& form) override;
    /// Above the splash, which would cover it.
    void Show(frmDefBrowser& form) override;
    /// Over the editor of groups, where that has asked for it.
    void Show(frmGroupCheck& form) override;
    void Show(frmGroupCompare& form) override;
    void Show(frmInternetOptions& form) override;
    void Show(frmOrganizeFavorites& form) override;
    void Show(frmRenameGroup& form) override;
    void Show(frmRenameTab& form) override;
    void Show(frmResize& form) override;
    void Show(frmSessions& form) override;
    void Show(frmSettings& form) override;
    void Show(frmSplash& form) override;
    void Show(frmTessaGroup& form) override;

private:
    [[nodiscard]] QWidget* Front() const;

    QWidget& m_window;
    Splash& m_splash;
};

} // namespace tessa::qt
