#include "qt/base/paint/ButtonMarks.h"

#include <QPainter>

namespace tessa::qt::ButtonMarks {

void PaintCross(QPainter& painter, const QRectF& arms, const QColor& ink, double width) {
    painter.setPen(QPen(ink, width, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(arms.topLeft(), arms.bottomRight());
    painter.drawLine(arms.topRight(), arms.bottomLeft());
}

void PaintWindows(QPainter& painter, const QRectF& place, const QColor& ink) {
    const double step = place.width() / 3.5;
    painter.setPen(QPen(ink, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(0, step, -step, 0));
    const QPointF behind[] = {{place.left() + step, place.top() + step},
                              {place.left() + step, place.top()},
                              place.topRight(),
                              {place.right(), place.bottom() - step},
                              {place.right() - step, place.bottom() - step}};
    painter.drawPolyline(behind, 5);
}

void PaintGround(QPainter& painter, const QRect& place, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(place, 3, 3);
}

} // namespace tessa::qt::ButtonMarks
