#include "qt/strip/TabLook.h"

#include "qt/base/Palette.h"
#include "qt/base/paint/ButtonMarks.h"
#include "qt/strip/TabMarks.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace tessa::qt {

namespace {
constexpr int kTabIconSize = 16;
constexpr int kTabMargin = 7;
constexpr int kTabGap = 6;
constexpr int kCorner = 4;
constexpr int kAccentHeight = 2;
constexpr int kColourHeight = 3;
constexpr double kChosenShare = 0.35;
/// No tab is wide enough for more; measuring a longer text would only cost time.
constexpr int kMeasuredUnits = 256;

/// A box with two round corners, at the side away from the page.
QPainterPath TabShape(const QRect& place, TabPlacement placement) {
    QRectF box(place);
    if (placement == TabPlacement::Top)
        box.setBottom(box.bottom() + kCorner);
    else
        box.setTop(box.top() - kCorner);
    QPainterPath shape;
    shape.addRoundedRect(box, kCorner, kCorner);
    return shape;
}
} // namespace

TabLook::TabLook(const QPalette& palette, TabPlacement placement)
    : m_placement(placement),
      m_text(palette.color(QPalette::WindowText)),
      m_accent(palette.color(QPalette::Highlight)) {
    const QColor window = palette.color(QPalette::Window);
    const bool dark = Palette::IsDark(palette);
    m_row = Palette::Mix(window, Qt::black, dark ? 0.35 : 0.10);
    m_selected = dark ? Palette::Mix(window, Qt::white, 0.10) : palette.color(QPalette::Base);
    m_hovered = Palette::Mix(m_row, m_selected, 0.45);
    m_line = Palette::Mix(m_row, m_text, 0.22);
    m_quietText = Palette::Mix(m_row, m_text, 0.78);
    m_faintText = Palette::Mix(m_row, m_text, 0.55);
    m_private = dark ? QColor(178, 132, 255) : QColor(106, 50, 196);
}

void TabLook::PaintBackground(QPainter& painter, const QRect& row) const {
    painter.fillRect(row, m_row);
    const int edge = m_placement == TabPlacement::Top ? row.bottom() : row.top();
    painter.fillRect(QRect(row.left(), edge, row.width(), 1), m_line);
}

void TabLook::PaintTab(QPainter& painter, const TabFace& face) const {
    painter.save();
    painter.setClipRect(face.place, Qt::IntersectClip);
    PaintBody(painter, face);
    PaintPane(painter, face);
    PaintColour(painter, face);
    const int margin = face.pinned ? (face.place.width() - kTabIconSize) / 2 : kTabMargin;
    const QRect icon(face.place.left() + margin, face.place.top() + (face.place.height() - kTabIconSize) / 2,
                     kTabIconSize, kTabIconSize);
    const QColor sheet = Palette::Mix(m_row, m_text, 0.55);
    TabMarks::PaintIcon(painter, {face.icon, face.asks, face.busy, face.news, sheet, m_row}, icon);
    if (!face.pinned) PaintCaption(painter, face, icon.right() + 1 + kTabGap);
    if (face.sound != TabSound::None && !face.pinned) PaintSound(painter, face);
    if (face.closeShown) PaintClose(painter, face);
    painter.restore();
}

void TabLook::PaintCaption(QPainter& painter, const TabFace& face, int left) const {
    QRect text = face.place;
    text.setLeft(left);
    text.setRight(face.closeShown ? face.closePlace.left() - 3 : face.place.right() - kTabMargin);
    if (face.sound != TabSound::None) text.setRight(face.soundPlace.left() - 3);
    painter.setPen(face.selected ? m_text : face.news == TabNews::Nothing ? m_faintText : m_quietText);
    const QString caption =
        painter.fontMetrics().elidedText(face.caption.left(kMeasuredUnits).simplified(), Qt::ElideRight, text.width());
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, caption);
}

// The line of what is selected, fainter: these pages are shown with it, or with each other.
void TabLook::PaintPane(QPainter& painter, const TabFace& face) const {
    if (face.pane == TabPane::None || face.selected) return;
    const QRect& place = face.place;
    const int top = m_placement == TabPlacement::Top ? place.top() : place.bottom() + 1 - kAccentHeight;
    const QColor line = Palette::Mix(m_row, m_accent, face.pane == TabPane::Shown ? 0.75 : 0.35);
    painter.fillRect(QRect(place.left() + kCorner, top, place.width() - 2 * kCorner, kAccentHeight), line);
}

// Beside the page, where nothing else is: what is selected has its line at the other side.
void TabLook::PaintColour(QPainter& painter, const TabFace& face) const {
    if (face.colour == TabColour::None) return;
    const QRect& place = face.place;
    const int top = m_placement == TabPlacement::Top ? place.bottom() + 1 - kColourHeight : place.top();
    painter.fillRect(QRect(place.left() + 1, top, place.width() - 2, kColourHeight), Palette::MarkColour(face.colour));
}

void TabLook::PaintBody(QPainter& painter, const TabFace& face) const {
    const QRect& place = face.place;
    if (face.isPrivate && !face.selected)
        painter.fillRect(place.adjusted(0, 1, -1, 0), Palette::Mix(m_row, m_private, 0.25));
    if (face.chosen && !face.selected) PaintChosen(painter, face);
    if (!face.selected && !face.hovered) {
        if (face.dividerShown) painter.fillRect(QRect(place.right(), place.top() + 5, 1, place.height() - 10), m_line);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath shape = TabShape(place, m_placement);
    const QColor plain = face.selected ? m_selected : m_hovered;
    const QColor body = face.chosen ? Palette::Mix(plain, m_accent, kChosenShare) : plain;
    painter.fillPath(shape, face.isPrivate ? Palette::Mix(body, m_private, 0.25) : body);
    if (!face.selected) return;
    painter.save();
    painter.setClipPath(shape, Qt::IntersectClip);
    const int top = m_placement == TabPlacement::Top ? place.top() : place.bottom() + 1 - kAccentHeight;
    painter.fillRect(QRect(place.left(), top, place.width(), kAccentHeight), face.isPrivate ? m_private : m_accent);
    painter.restore();
    if (!face.focused) return;
    painter.setPen(QPen(m_accent, 1));
    painter.drawRoundedRect(QRectF(place).adjusted(2.5, 3.5, -2.5, -3.5), 2, 2);
}

// Chosen with others: the ground of the selection, which begins at the outer edge as on the tab in front.
void TabLook::PaintChosen(QPainter& painter, const TabFace& face) const {
    const QRect place = face.place.adjusted(0, 0, -1, 0);
    painter.fillRect(place, Palette::Mix(m_row, m_accent, kChosenShare));
    const int top = m_placement == TabPlacement::Top ? place.top() : place.bottom() + 1 - kAccentHeight;
    painter.fillRect(QRect(place.left(), top, place.width(), kAccentHeight), Palette::Mix(m_row, m_accent, 0.7));
}

void TabLook::PaintSound(QPainter& painter, const TabFace& face) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = face.selected ? m_selected : face.hovered ? m_hovered : m_row;
    if (face.soundHovered) ButtonMarks::PaintGround(painter, face.soundPlace, Palette::Mix(ground, m_text, 0.18));
    painter.restore();
    TabMarks::PaintSoundMark(painter, face.soundPlace, face.soundHovered ? m_text : Palette::Mix(ground, m_text, 0.75),
                             face.sound);
}

void TabLook::PaintClose(QPainter& painter, const TabFace& face) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = face.selected ? m_selected : m_hovered;
    if (face.closeHovered) ButtonMarks::PaintGround(painter, face.closePlace, Palette::Mix(ground, m_text, 0.18));
    const QRectF arms = QRectF(face.closePlace).adjusted(4.5, 4.5, -4.5, -4.5);
    ButtonMarks::PaintCross(painter, arms, face.closeHovered ? m_text : Palette::Mix(ground, m_text, 0.65));
}

void TabLook::PaintListButton(QPainter& painter, const QRect& place, bool hovered) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (hovered) painter.fillRect(place.adjusted(1, 2, -1, -2), m_hovered);
    const QPointF centre = QRectF(place).center();
    painter.setPen(QPen(m_text, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF angle[] = {centre + QPointF(-4, -2), centre + QPointF(0, 2.5), centre + QPointF(4, -2)};
    painter.drawPolyline(angle, 3);
    painter.restore();
}

void TabLook::PaintNewButton(QPainter& painter, const QRect& place, bool hovered) const {
    constexpr double kArm = 5;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (hovered) painter.fillRect(place.adjusted(2, 2, -2, -2), m_hovered);
    const QPointF centre = QRectF(place).center();
    painter.setPen(QPen(m_text, 1.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre - QPointF(kArm, 0), centre + QPointF(kArm, 0));
    painter.drawLine(centre - QPointF(0, kArm), centre + QPointF(0, kArm));
    painter.restore();
}

void TabLook::PaintArrow(QPainter& painter, const QRect& place, Qt::LayoutDirection towards, bool enabled,
                         bool hovered) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (enabled && hovered) painter.fillRect(place.adjusted(1, 2, -1, -2), m_hovered);
    const double step = towards == Qt::LeftToRight ? 2.5 : -2.5;
    const QPointF centre = QRectF(place).center();
    const QPointF tip(centre.x() + step, centre.y());
    painter.setPen(
        QPen(enabled ? m_text : Palette::Mix(m_row, m_text, 0.3), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF angle[] = {{centre.x() - step, centre.y() - 4}, tip, {centre.x() - step, centre.y() + 4}};
    painter.drawPolyline(angle, 3);
    painter.restore();
}

} // namespace tessa::qt
