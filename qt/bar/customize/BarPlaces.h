#pragma once
#include <QRect>
#include <vector>

class QWidget;

namespace tessa::qt {

/// Where the entries of a toolbar or a menu bar are, in the order of its band. Separators are not counted; an entry
/// that is not visible has an empty rectangle.
namespace BarPlaces {

[[nodiscard]] std::vector<QRect> Entries(const QWidget& bar);

/// The entry at a point of the bar; -1 for none.
[[nodiscard]] int EntryAt(const QWidget& bar, const QPoint& point);

/// Before which entry a tool goes that is dropped there.
[[nodiscard]] int PlaceAt(const QWidget& bar, const QPoint& point);

/// The line that shows that place.
[[nodiscard]] QRect LineAt(const QWidget& bar, int place);

} // namespace BarPlaces

} // namespace tessa::qt
