#include "qt/strip/TabLook.h"

#include "qt/base/Palette.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <algorithm>

namespace tessa::qt {

namespace {
constexpr int kTabIconSize = 16;
constexpr int kTabMargin = 7;
constexpr int kTabGap = 6;
constexpr int kCorner = 4;
constexpr int kAccentHeight = 2;
constexpr int kColourHeight = 3;
constexpr int kHalfLight = 128;
constexpr double kChosenShare = 0.35;
/// No tab is wide enough for more; measuring a longer text would only cost time.
constexpr int kMeasuredUnits = 256;

// A head: a box with an arrow, the name, and what there is to say of the group.
constexpr int kHeadMargin = 3, kHeadPadding = 6, kHeadArrow = 8, kHeadGap = 4, kHeadMark = 6;
constexpr int kWidestName = 12; // in heights of the font
constexpr int kSlimHead = 8;

/// What is said of the group behind its name.
QString HeadWords(const TabHeadFace& face) {
    if (face.loading > 0) return QString::number(face.loading) + QChar(0x2026);
    return face.folded ? QString::number(face.count) : QString();
}

int HeadNameWidth(const QFontMetrics& font, const TabHeadFace& face) {
    return std::min(font.horizontalAdvance(face.name.left(kMeasuredUnits)) + 1, kWidestName * font.height());
}

/// Black or white, whichever is read better on it.
QColor InkOn(const QColor& ground) {
    const double light = 0.299 * ground.redF() + 0.587 * ground.greenF() + 0.114 * ground.blueF();
    return light > 0.52 ? QColor(16, 16, 16) : QColor(Qt::white);
}

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

void TabLook::PaintIcon(QPainter& painter, const TabFace& face, const QRect& icon) const {
    if (face.asks)
        PaintAskMark(painter, icon);
    else if (face.busy)
        PaintBusyMark(painter, icon);
    else if (face.icon.isNull())
        PaintBlankPage(painter, icon, Palette::Mix(m_row, m_text, 0.55));
    else
        face.icon.paint(&painter, icon);
    if (face.news == TabNews::New && !face.asks && !face.busy) PaintNewsMark(painter, icon, m_row);
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
    PaintIcon(painter, face, icon);
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

int TabLook::HeadWidth(const QFontMetrics& font, const TabHeadFace& face) {
    if (face.name.isEmpty()) return kSlimHead;
    const QString words = HeadWords(face);
    const int said = words.isEmpty() ? 0 : kHeadGap + font.horizontalAdvance(words);
    const int mark = face.changed ? kHeadGap + kHeadMark : 0;
    return 2 * (kHeadMargin + kHeadPadding) + kHeadArrow + kHeadGap + HeadNameWidth(font, face) + mark + said;
}

void TabLook::PaintHead(QPainter& painter, const TabHeadFace& face) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor mark = Palette::MarkColour(face.colour);
    const QColor ground = face.hovered ? Palette::Mix(mark, m_text, 0.16) : mark;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    const int margin = face.name.isEmpty() ? kHeadMargin - 1 : kHeadMargin;
    const QRect box = face.place.adjusted(margin, kHeadMargin, -margin, -kHeadMargin);
    painter.drawRoundedRect(box, face.name.isEmpty() ? 1.5 : kCorner, face.name.isEmpty() ? 1.5 : kCorner);
    if (!face.name.isEmpty()) PaintHeadWords(painter, face, box, InkOn(ground));
    if (face.aimed) {
        painter.setPen(QPen(m_text, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(face.place).adjusted(1, 1, -1, -1), kCorner, kCorner);
    }
    painter.restore();
}

// Towards the tabs when they are hidden, down when they are seen.
void TabLook::PaintHeadArrow(QPainter& painter, const QPointF& centre, bool folded) {
    const QPolygonF down({centre + QPointF(-3.5, -2), centre + QPointF(0, 2), centre + QPointF(3.5, -2)});
    const QPolygonF right({centre + QPointF(-2, -3.5), centre + QPointF(2, 0), centre + QPointF(-2, 3.5)});
    painter.drawPolyline(folded ? right : down);
}

void TabLook::PaintHeadWords(QPainter& painter, const TabHeadFace& face, const QRect& box, const QColor& ink) const {
    painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    int left = box.left() + kHeadPadding;
    PaintHeadArrow(painter, QPointF(left + kHeadArrow / 2.0, QRectF(box).center().y()), face.folded);
    left += kHeadArrow + kHeadGap;
    const QFontMetrics font = painter.fontMetrics();
    const auto write = [&](const QString& words, int width) {
        painter.drawText(QRect(left, box.top(), width, box.height()),
                         Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, words);
        left += width;
    };
    const int name = HeadNameWidth(font, face);
    write(font.elidedText(face.name.left(kMeasuredUnits), Qt::ElideRight, name), name);
    if (face.changed) {
        painter.setBrush(ink);
        painter.drawEllipse(QPointF(left + kHeadGap + kHeadMark / 2.0, QRectF(box).center().y()), 2.5, 2.5);
        left += kHeadGap + kHeadMark;
    }
    const QString words = HeadWords(face);
    left += kHeadGap;
    painter.setPen(Palette::Mix(ink, Palette::MarkColour(face.colour), 0.2));
    if (!words.isEmpty()) write(words, font.horizontalAdvance(words));
}

// Beside the page, where nothing else is: what is selected has its line at the other side.
void TabLook::PaintColour(QPainter& painter, const TabFace& face) const {
    if (face.colour == TabColour::None) return;
    const QRect& place = face.place;
    const int top = m_placement == TabPlacement::Top ? place.bottom() + 1 - kColourHeight : place.top();
    painter.fillRect(QRect(place.left() + 1, top, place.width() - 2, kColourHeight), Palette::MarkColour(face.colour));
}

// A dot at the corner of the icon, with a rim that tells it from any icon.
void TabLook::PaintNewsMark(QPainter& painter, const QRect& icon, const QColor& ground) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ground, 1.5));
    const bool dark = ground.lightness() < kHalfLight;
    painter.setBrush(dark ? QColor(255, 190, 60) : QColor(214, 120, 0));
    painter.drawEllipse(QPointF(icon.right() - 1.5, icon.top() + 2.5), 4.5, 4.5);
    painter.restore();
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

void TabLook::PaintAskMark(QPainter& painter, const QRect& place) {
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

void TabLook::PaintBusyMark(QPainter& painter, const QRect& place) {
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

void TabLook::PaintBlankPage(QPainter& painter, const QRect& place, const QColor& color) {
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

namespace {

void PaintHorn(QPainter& painter, const QColor& ink, QPointF centre) {
    const QPolygonF horn({centre + QPointF(-5, -1.8), centre + QPointF(-3, -1.8), centre + QPointF(0, -4.5),
                          centre + QPointF(0, 4.5), centre + QPointF(-3, 1.8), centre + QPointF(-5, 1.8)});
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPolygon(horn);
}

} // namespace

void TabLook::PaintSoundMark(QPainter& painter, const QRect& place, const QColor& ink, TabSound sound) {
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

void TabLook::PaintSound(QPainter& painter, const TabFace& face) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = face.selected ? m_selected : face.hovered ? m_hovered : m_row;
    if (face.soundHovered) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Palette::Mix(ground, m_text, 0.18));
        painter.drawRoundedRect(face.soundPlace, 3, 3);
    }
    painter.restore();
    PaintSoundMark(painter, face.soundPlace, face.soundHovered ? m_text : Palette::Mix(ground, m_text, 0.75),
                   face.sound);
}

void TabLook::PaintClose(QPainter& painter, const TabFace& face) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = face.selected ? m_selected : m_hovered;
    if (face.closeHovered) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Palette::Mix(ground, m_text, 0.18));
        painter.drawRoundedRect(face.closePlace, 3, 3);
    }
    const QRectF cross = QRectF(face.closePlace).adjusted(4.5, 4.5, -4.5, -4.5);
    painter.setPen(
        QPen(face.closeHovered ? m_text : Palette::Mix(ground, m_text, 0.65), 1.3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
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
