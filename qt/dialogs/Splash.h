#pragma once
#include "platform/Application.h"
#include "window/frmSplash.h"

#include <QWidget>
#include <memory>

namespace tessa::qt {

/// The window that says the program's name while the main window is being built. Never waits for anything.
class Splash final : public SplashWindow {
public:
    Splash();
    ~Splash() override;

    void Show() override;
    void Unload() override;
    /// The window, for what must be shown above it; null when it is not there.
    [[nodiscard]] QWidget* Window() const { return m_window.get(); }

private:
    std::unique_ptr<frmSplash> m_form;
    std::unique_ptr<QWidget> m_window;
};

} // namespace tessa::qt
