#pragma once
#include "bar/CommandBar.h"

class QMenu;
class QPoint;
class QWidget;

/// The menu that a right click on any toolbar opens: the toolbars to show or hide, and the way to arrange them.
namespace QtToolBarsMenu {

/// Opens it at a point of the screen. It ends itself when it closes.
QMenu* Show(CommandBar& bar, QWidget& window, const QPoint& at);

} // namespace QtToolBarsMenu
