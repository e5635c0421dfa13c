#pragma once
#include "common/platform/Application.h"

#include <QWidget>
#include <memory>

/// The window that says the program's name while the main window is being built.
class QtSplash final : public SplashWindow {
public:
    QtSplash();
    ~QtSplash() override;

    void Show() override;
    void Unload() override;

private:
    std::unique_ptr<QWidget> m_window;
};
