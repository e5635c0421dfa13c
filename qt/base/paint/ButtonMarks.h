#pragma once
#include <QColor>

class QPainter;
class QRect;
class QRectF;

namespace tessa::qt {

/// What small buttons show that the program paints itself, and so in the desktop's colours at any scale.
namespace ButtonMarks {

/// The cross that closes something, as large as `arms`.
void PaintCross(QPainter& painter, const QRectF& arms, const QColor& ink, double width = 1.3);
/// Two windows, one before the other: takes a part of the window out of it, or back into it.
void PaintWindows(QPainter& painter, const QRectF& place, const QColor& ink);
/// What a mark stands on that is pressed like a button, while the pointer is over it.
void PaintGround(QPainter& painter, const QRect& place, const QColor& colour);

} // namespace ButtonMarks

} // namespace tessa::qt
