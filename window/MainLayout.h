#pragma once
#include "base/Units.h"
#include "forms/TabStrip.h"

namespace tessa {

/// The main window's geometry, as pure functions of what it reads. All lengths in logical pixels.
namespace MainLayout {

struct Inputs {
    Pixels innerWidth, innerHeight;
    /// 0 when the status bar is hidden.
    Pixels statusHeight;
    Pixels tabRowHeight{22};
    TabPlacement placement = TabPlacement::Top;
};

/// The tab strip: the whole inner area above the status bar.
[[nodiscard]] Rect TabStripPlace(const Inputs& inputs);

/// The selected view, over the strip's page area. Its height is never negative, however low the window is.
[[nodiscard]] Rect ViewPlace(const Inputs& inputs);

} // namespace MainLayout

} // namespace tessa
