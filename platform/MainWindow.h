#pragma once
#include "base/Text.h"
#include "base/Units.h"

namespace tessa {

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

/// Position and size of a window on the screen.
struct Placement {
    Twips left, top, width, height;
    bool operator==(const Placement&) const = default;
};

/// The main window's frame on the desktop. Owned by the program's entry.
class MainWindow {
public:
    virtual ~MainWindow() = default;

    virtual void SetCaption(TextView caption) = 0;
    virtual void Show() = 0;
    /// Closes the window; its unload handler runs.
    virtual void Close() = 0;

    [[nodiscard]] virtual WindowState State() const = 0;
    virtual void SetState(WindowState state) = 0;
    [[nodiscard]] virtual Placement Place() const = 0;
    virtual void SetPlace(const Placement& place) = 0;
    /// Leaves the position to the desktop.
    virtual void SetSize(Twips width, Twips height) = 0;
    /// Full screen goes on top of the state, which comes back afterwards.
    [[nodiscard]] virtual bool FullScreen() const = 0;
    virtual void SetFullScreen(bool on) = 0;
    /// The inner area that tab strip, page and status bar share.
    [[nodiscard]] virtual Pixels InnerWidth() const = 0;
    [[nodiscard]] virtual Pixels InnerHeight() const = 0;
    [[nodiscard]] virtual Twips ScreenWidth() const = 0;
    [[nodiscard]] virtual Twips ScreenHeight() const = 0;
    /// Places the tab strip in the inner area.
    virtual void MoveTabStrip(const Rect& place) = 0;
    virtual void ShowTabStrip(bool show) = 0;
};

} // namespace tessa
