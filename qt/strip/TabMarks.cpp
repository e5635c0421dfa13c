#include "qt/strip/TabMarks.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

namespace tessa::qt::TabMarks {

namespace {

constexpr int kHalfLight = 128;

void PaintHorn(QPainter& painter, const QColor& ink, QPointF centre) {
    const QPolygonF horn({centre + QPointF(-5, -1.8), centre + QPointF(-3, -1.8), centre + QPointF(0, -4.5),
                          centre + QPointF(0, 4.5), centre + QPointF(-3, 1.8), centre + QPointF(-5, 1.8)});
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPolygon(horn);
}

} // namespace

void PaintIcon(QPainter& painter, const TabIconFace& face, const QRect& place) {
    if (face.asks)
        PaintAskMark(painter, place);
    else if (face.busy)
        PaintBusyMark(painter, place);
    else if (face.icon.isNull())
        PaintBlankPage(painter, place, face.sheet);
    else
        face.icon.paint(&painter, place);
    if (face.news == TabNews::New && !face.asks && !face.busy) PaintNewsMark(painter, place, face.ground);
}

// A dot at the corner of the icon, with a rim that tells it from any icon.
void PaintNewsMark(QPainter& painter, const QRect& icon, const QColor& ground) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ground, 1.5));
    const bool dark = ground.lightness() < kHalfLight;
    painter.setBrush(dark ? QColor(255, 190, 60) : QColor(214, 120, 0));
    painter.drawEllipse(QPointF(icon.right() - 1.5, icon.top() + 2.5), 4.5, 4.5);
    painter.restore();
}

void PaintAskMark(QPainter& painter, const QRect& place) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(201, 84, 0));
    painter.drawEllipse(QRectF(place).center(), 7.5, 7.5);
    QFont bold = painter.font();
    bold.setBold(true);
    bold.setPixelSize(12);
    painter.setFont(bold);
    painter.setPen(Qt::white);
    painter.drawText(place, Qt::AlignCenter, QStringLiteral("?"));
    painter.restore();
}

void PaintBusyMark(QPainter& painter, const QRect& place) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre = QRectF(place).center();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(224, 49, 49, 70));
    painter.drawEllipse(centre, 6.5, 6.5);
    painter.setBrush(QColor(224, 49, 49));
    painter.drawEllipse(centre, 4, 4);
    painter.restore();
}

void PaintBlankPage(QPainter& painter, const QRect& place, const QColor& color) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF sheet = QRectF(place).adjusted(3.5, 2.5, -3.5, -2.5);
    constexpr double kFold = 3.5;
    QPainterPath outline(sheet.topLeft());
    outline.lineTo(sheet.right() - kFold, sheet.top());
    outline.lineTo(sheet.right(), sheet.top() + kFold);
    outline.lineTo(sheet.bottomRight());
    outline.lineTo(sheet.bottomLeft());
    outline.closeSubpath();
    outline.moveTo(sheet.right() - kFold, sheet.top());
    outline.lineTo(sheet.right() - kFold, sheet.top() + kFold);
    outline.lineTo(sheet.right(), sheet.top() + kFold);
    painter.strokePath(outline, QPen(color, 1));
}

void PaintSoundMark(QPainter& painter, const QRect& place, const QColor& ink, TabSound sound) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre = QRectF(place).center();
    PaintHorn(painter, ink, centre);
    painter.setPen(QPen(ink, 1.2, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    if (sound == TabSound::Muted) {
        painter.drawLine(centre + QPointF(2, -2), centre + QPointF(6, 2));
        painter.drawLine(centre + QPointF(6, -2), centre + QPointF(2, 2));
    } else {
        for (const double radius : {2.5, 5.0})
            painter.drawArc(QRectF(centre.x() - radius + 0.5, centre.y() - radius, 2 * radius, 2 * radius), -50 * 16,
                            100 * 16);
    }
    painter.restore();
}

void PaintFoldArrow(QPainter& painter, const QPointF& centre, bool folded, double half) {
    const QPolygonF down({centre + QPointF(-half, -2), centre + QPointF(0, 2), centre + QPointF(half, -2)});
    const QPolygonF right({centre + QPointF(-2, -half), centre + QPointF(2, 0), centre + QPointF(-2, half)});
    painter.drawPolyline(folded ? right : down);
}

} // namespace tessa::qt::TabMarks
