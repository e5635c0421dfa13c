#pragma once
#include "base/Signal.h"
#include "platform/WindowTools.h"

namespace tessa::qt {

class QtDevTools;
class QtEngine;
class QtFindBar;

/// What commands open beside the page and over the window.
class QtWindowTools final : public WindowTools {
public:
    /// All outlive it.
    QtWindowTools(QtEngine& engine, QtFindBar& findBar, QtDevTools& devTools)
        : m_engine(engine), m_findBar(findBar), m_devTools(devTools) {}

    void ShowFind(BrowserView& view) override;
    void ToggleDevTools() override;
    void ShowTabList() override { ListsTabs(); }
    void Customize() override { Customizes(); }

    /// The list of tabs is to drop down.
    Signal<void()> ListsTabs;
    /// The dialog in which the bars are arranged is to open.
    Signal<void()> Customizes;

private:
    QtEngine& m_engine;
    QtFindBar& m_findBar;
    QtDevTools& m_devTools;
};

} // namespace tessa::qt
