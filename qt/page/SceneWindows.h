#pragma once

class QWidget;

namespace tessa::qt {

/// The engine paints each page in a window of its own that never comes to the screen.
namespace SceneWindows {

/// Keeps assistive tools from listing those windows of a view beside the program's own, as long as the view lives.
void Hide(QWidget& view);

} // namespace SceneWindows

} // namespace tessa::qt
