#pragma once
#include "base/Text.h"

namespace tessa {

/// The program as the desktop sees it, during its start. Owned by the program's entry.
class Application {
public:
    virtual ~Application() = default;
    virtual void SetTitle(TextView title) = 0;
    /// Lets pending window events run once.
    virtual void DoEvents() = 0;
};

/// The window that says the program's name while the main window is being built.
class SplashWindow {
public:
    virtual ~SplashWindow() = default;
    virtual void Show() = 0;
    /// Takes the window off the screen; nothing when it is not there.
    virtual void Unload() = 0;
};

} // namespace tessa
