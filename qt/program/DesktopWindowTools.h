#pragma once
#include "base/Signal.h"
#include "platform/WindowTools.h"

namespace tessa::qt {

class DevTools;
class Engine;
class FindBar;

/// What commands open beside the page and over the window.
class DesktopWindowTools final : public WindowTools {
public:
    /// All outlive it.
    DesktopWindowTools(Engine& engine, FindBar& findBar, DevTools& devTools)
        : m_engine(engine), m_findBar(findBar), m_devTools(devTools) {}

    void ShowFind(BrowserView& view) override;
    void ToggleDevTools() override;
    void ShowTabList() override { ListsTabs(); }
    void MoveDividers() override { MovesDividers(); }
    void Customize() override { Customizes(); }

    /// The list of tabs is to drop down.
    Signal<void()> ListsTabs;
    /// The keyboard is to move the dividers between panes.
    Signal<void()> MovesDividers;
    /// The dialog in which the bars are arranged is to open.
    Signal<void()> Customizes;

private:
    Engine& m_engine;
    FindBar& m_findBar;
    DevTools& m_devTools;
};

} // namespace tessa::qt
