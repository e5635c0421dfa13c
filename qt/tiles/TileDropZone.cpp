#include "qt/tiles/TileDropZone.h"

#include <QPainter>

namespace tessa::qt {

TileDropZone::TileDropZone(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("tileDropZone"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    hide();
}

void TileDropZone::ShowAt(const QRect& place) {
    if (place.isEmpty()) return hide();
    setGeometry(place);
    raise();
    show();
}

void TileDropZone::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor colour = palette().color(QPalette::Highlight);
    painter.setPen(QPen(colour, 2));
    colour.setAlpha(90);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(rect()).adjusted(3, 3, -3, -3), 6, 6);
}

} // namespace tessa::qt
