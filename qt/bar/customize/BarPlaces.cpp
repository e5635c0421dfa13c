#include "qt/bar/customize/BarPlaces.h"

#include <QAction>
#include <QMenuBar>
#include <QToolBar>
#include <algorithm>

namespace tessa::qt {

namespace {

constexpr int kLine = 3, kHandle = 10;

bool IsUpright(const QWidget& bar) {
    const auto* toolBar = qobject_cast<const QToolBar*>(&bar);
    return toolBar && toolBar->orientation() == Qt::Vertical;
}

QRect PlaceOf(const QWidget& bar, QAction* action) {
    if (const auto* menuBar = qobject_cast<const QMenuBar*>(&bar)) return menuBar->actionGeometry(action);
    const auto* toolBar = qobject_cast<const QToolBar*>(&bar);
    const QWidget* widget = toolBar ? toolBar->widgetForAction(action) : nullptr;
    return widget && widget->isVisibleTo(&bar) ? widget->geometry() : QRect();
}

/// Whether a point lies before the middle of an entry, in the direction in which the bar is read.
bool IsBefore(const QWidget& bar, const QPoint& point, const QRect& entry) {
    if (IsUpright(bar)) return point.y() < entry.center().y();
    return bar.isRightToLeft() ? point.x() > entry.center().x() : point.x() < entry.center().x();
}

} // namespace

namespace BarPlaces {

std::vector<QRect> Entries(const QWidget& bar) {
    std::vector<QRect> entries;
    for (QAction* action : bar.actions()) {
        if (!action->isSeparator()) entries.push_back(PlaceOf(bar, action));
    }
    return entries;
}

int EntryAt(const QWidget& bar, const QPoint& point) {
    const std::vector<QRect> entries = Entries(bar);
    const auto found = std::ranges::find_if(entries, [&](const QRect& entry) { return entry.contains(point); });
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

int PlaceAt(const QWidget& bar, const QPoint& point) {
    const std::vector<QRect> entries = Entries(bar);
    const auto found = std::ranges::find_if(
        entries, [&](const QRect& entry) { return !entry.isEmpty() && IsBefore(bar, point, entry); });
    return static_cast<int>(found - entries.begin());
}

QRect LineAt(const QWidget& bar, int place) {
    const std::vector<QRect> entries = Entries(bar);
    const bool upright = IsUpright(bar), behind = place >= static_cast<int>(entries.size());
    QRect entry = behind ? QRect() : entries[static_cast<std::size_t>(place)];
    for (auto each = entries.rbegin(); behind && entry.isEmpty() && each != entries.rend(); ++each) entry = *each;
    if (entry.isEmpty()) entry = bar.rect().adjusted(kHandle, 0, -kLine, 0);
    const bool far = behind && !entries.empty();
    if (upright) return {0, far ? entry.bottom() - 1 : entry.top() - 1, bar.width(), kLine};
    return {far != bar.isRightToLeft() ? entry.right() - 1 : entry.left() - 1, 0, kLine, bar.height()};
}

} // namespace BarPlaces

} // namespace tessa::qt
