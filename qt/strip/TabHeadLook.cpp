#include "qt/strip/TabHeadLook.h"

#include "qt/base/Palette.h"
#include "qt/base/paint/Contrast.h"
#include "qt/strip/TabMarks.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <algorithm>

namespace tessa::qt {

namespace {

constexpr int kHeadCorner = 4;
/// No head is wide enough for more; measuring a longer text would only cost time.
constexpr int kMeasuredNameUnits = 256;

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
    return std::min(font.horizontalAdvance(face.name.left(kMeasuredNameUnits)) + 1, kWidestName * font.height());
}

} // namespace

// White is read well on what is darker than that, though black may have a little more contrast there.
QColor TabHeadLook::InkOn(const QColor& ground) {
    constexpr double kDarkEnough = 0.21;
    return Contrast::LuminanceOf(ground) > kDarkEnough ? QColor(16, 16, 16) : QColor(Qt::white);
}

// Away from the ink, which stays what it is.
QColor TabHeadLook::GroundOf(TabColour colour, bool hovered) {
    const QColor mark = Palette::MarkColour(colour);
    if (!hovered) return mark;
    return Palette::Mix(mark, InkOn(mark) == QColor(Qt::white) ? Qt::black : Qt::white, 0.2);
}

TabHeadLook::TabHeadLook(const QPalette& palette) : m_text(palette.color(QPalette::WindowText)) {}

int TabHeadLook::Width(const QFontMetrics& font, const TabHeadFace& face) {
    if (face.name.isEmpty()) return kSlimHead;
    const QString words = HeadWords(face);
    const int said = words.isEmpty() ? 0 : kHeadGap + font.horizontalAdvance(words);
    const int mark = face.changed ? kHeadGap + kHeadMark : 0;
    return 2 * (kHeadMargin + kHeadPadding) + kHeadArrow + kHeadGap + HeadNameWidth(font, face) + mark + said;
}

void TabHeadLook::Paint(QPainter& painter, const TabHeadFace& face) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = GroundOf(face.colour, face.hovered);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    const int margin = face.name.isEmpty() ? kHeadMargin - 1 : kHeadMargin;
    const QRect box = face.place.adjusted(margin, kHeadMargin, -margin, -kHeadMargin);
    painter.drawRoundedRect(box, face.name.isEmpty() ? 1.5 : kHeadCorner, face.name.isEmpty() ? 1.5 : kHeadCorner);
    if (!face.name.isEmpty()) PaintWords(painter, face, box, InkOn(ground));
    if (face.aimed) {
        painter.setPen(QPen(m_text, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(face.place).adjusted(1, 1, -1, -1), kHeadCorner, kHeadCorner);
    }
    painter.restore();
}

void TabHeadLook::PaintWords(QPainter& painter, const TabHeadFace& face, const QRect& box, const QColor& ink) {
    painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    int left = box.left() + kHeadPadding;
    TabMarks::PaintFoldArrow(painter, QPointF(left + kHeadArrow / 2.0, QRectF(box).center().y()), face.folded, 3.5);
    left += kHeadArrow + kHeadGap;
    const QFontMetrics font = painter.fontMetrics();
    const auto write = [&](const QString& words, int width) {
        painter.drawText(QRect(left, box.top(), width, box.height()),
                         Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, words);
        left += width;
    };
    const int name = HeadNameWidth(font, face);
    write(font.elidedText(face.name.left(kMeasuredNameUnits), Qt::ElideRight, name), name);
    if (face.changed) {
        painter.setBrush(ink);
        painter.drawEllipse(QPointF(left + kHeadGap + kHeadMark / 2.0, QRectF(box).center().y()), 2.5, 2.5);
        left += kHeadGap + kHeadMark;
    }
    const QString words = HeadWords(face);
    left += kHeadGap;
    if (!words.isEmpty()) write(words, font.horizontalAdvance(words));
}

} // namespace tessa::qt
