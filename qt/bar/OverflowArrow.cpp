#include "qt/bar/OverflowArrow.h"

#include <QPainter>
#include <QStyleOptionToolButton>
#include <QToolBar>
#include <QToolButton>

namespace tessa::qt {

namespace {

constexpr double kArrowHeight = 6, kArrowWidth = 3, kArrowGap = 4;

// Two arrows that point to where the rest would stand.
void DrawArrows(QPainter& painter, const QRect& place, const QColor& color, bool upright) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(place).center());
    if (upright) painter.rotate(90);
    painter.setPen(QPen(color, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const double left : {-kArrowGap, 0.0}) {
        const QPointF tip(left + kArrowWidth, 0);
        painter.drawLine(QPointF(left, -kArrowHeight / 2), tip);
        painter.drawLine(tip, QPointF(left, kArrowHeight / 2));
    }
    painter.restore();
}

} // namespace

void OverflowArrow::Show(const QWidget& bar, const QString& button, const QString& name) {
    auto* more = bar.findChild<QToolButton*>(button);
    if (!more) return;
    more->setAccessibleName(name);
    more->setToolTip(name);
    auto* style = new OverflowArrow;
    style->setParent(more);
    more->setStyle(style);
}

void OverflowArrow::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                       const QWidget* widget) const {
    const auto* shown = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    if (control != CC_ToolButton || !shown) return QProxyStyle::drawComplexControl(control, option, painter, widget);
    QStyleOptionToolButton bare(*shown);
    bare.icon = QIcon();
    bare.arrowType = Qt::NoArrow;
    bare.features = QStyleOptionToolButton::None;
    QProxyStyle::drawComplexControl(control, &bare, painter, widget);
    const auto* bar = widget ? qobject_cast<const QToolBar*>(widget->parentWidget()) : nullptr;
    const bool upright = bar && bar->orientation() == Qt::Vertical;
    DrawArrows(*painter, option->rect, option->palette.color(QPalette::ButtonText), upright);
}

} // namespace tessa::qt
