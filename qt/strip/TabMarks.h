#pragma once
#include "forms/TabStrip.h"

#include <QColor>
#include <QIcon>
#include <QRect>

class QPainter;
class QPointF;

namespace tessa::qt {

/// What stands where a tab shows its icon.
struct TabIconFace {
    QIcon icon;
    bool asks = false; ///< the page waits for an answer
    bool busy = false;
    TabNews news = TabNews::Unknown;
    QColor sheet;  ///< of a page that has no icon
    QColor ground; ///< below it
};

/// The marks of tabs, the same wherever tabs are listed.
namespace TabMarks {

/// The icon of the page, or the mark that takes its place; with what else there is to say of the page.
void PaintIcon(QPainter& painter, const TabIconFace& face, const QRect& place);
/// The picture "Red": the page is loading.
void PaintBusyMark(QPainter& painter, const QRect& place);
/// The page waits for an answer.
void PaintAskMark(QPainter& painter, const QRect& place);
/// A dot at the corner of an icon: the page says something new. `ground` is what the icon stands on.
void PaintNewsMark(QPainter& painter, const QRect& icon, const QColor& ground);
/// A loudspeaker, with waves when it is heard and crossed out when it is muted.
void PaintSoundMark(QPainter& painter, const QRect& place, const QColor& ink, TabSound sound);
/// A sheet with a folded corner, for a page that has no icon.
void PaintBlankPage(QPainter& painter, const QRect& place, const QColor& color);
/// Towards the tabs of a group when they are hidden, down when they are seen; with the pen that is set. `half` is half
/// its width.
void PaintFoldArrow(QPainter& painter, const QPointF& centre, bool folded, double half);

} // namespace TabMarks

} // namespace tessa::qt
