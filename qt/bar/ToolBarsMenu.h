#pragma once
#include "bar/CommandBar.h"

class QMenu;
class QPoint;
class QWidget;

namespace tessa::qt {

/// The menu that a right click on any toolbar opens. It shows and hides toolbars and leads to their arrangement.
namespace ToolBarsMenu {

/// Opens it at a point of the screen. It ends itself when it closes.
QMenu* Show(CommandBar& bar, QWidget& window, const QPoint& at);

} // namespace ToolBarsMenu

} // namespace tessa::qt
