#pragma once

class QWidget;

namespace tessa::qt {

/// A page that loads behind the front is laid out as if it were shown.
namespace ParkedSize {

/// Gives what the engine puts into the view the view's size while the view is hidden. Else a hidden widget is told its
/// size only when it is shown. Until then its page is 0 pixels wide. Where the engine allows it,
/// nothing is made to draw on before that.
void Follow(QWidget& view);

} // namespace ParkedSize

} // namespace tessa::qt
