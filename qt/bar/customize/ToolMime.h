#pragma once
#include "commands/Customization.h"

#include <optional>

class QIcon;
class QMimeData;
class QString;
class QWidget;

namespace tessa::qt {

/// A tool on its way from one place of the command bar to another. Only the program that it comes from knows it.
namespace ToolMime {

/// So long a tool is held over a menu until that opens.
constexpr int kHoverMilliseconds = 450;

/// The type of the data that a drag carries.
[[nodiscard]] const QString& Type();

/// The caller owns the data.
[[nodiscard]] QMimeData* Write(const CommandBar& bar, const DraggedTool& dragged);

/// Nothing for data of another kind or program, or when the entry is no longer where it was taken up.
[[nodiscard]] std::optional<DraggedTool> Read(const CommandBar& bar, const QMimeData* data);

/// Lets the user drag a tool about until the mouse button is released. `source` lends it its font and may end
/// meanwhile, but not while it handles an event.
void Drag(QWidget& source, const CommandBar& bar, const DraggedTool& dragged);

} // namespace ToolMime

} // namespace tessa::qt
