#pragma once
#include "platform/BrowserView.h"

namespace tessa {

/// What the main window's view has besides the pages. Owned by the program's entry.
class WindowTools {
public:
    virtual ~WindowTools() = default;

    /// Opens the bar that finds text on that page.
    virtual void ShowFind(BrowserView& view) = 0;
    /// Opens the developer tools for the current page, or closes them.
    virtual void ToggleDevTools() = 0;
    /// Opens the list of tabs.
    virtual void ShowTabList() = 0;
    /// Gives the keyboard to what lies between the pages that are side by side.
    virtual void MoveDividers() = 0;
    /// Opens the window in which toolbars are arranged.
    virtual void Customize() = 0;
};

} // namespace tessa
