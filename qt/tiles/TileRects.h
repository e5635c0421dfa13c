#pragma once
#include "base/Units.h"

#include <QRect>

namespace tessa::qt {

inline QRect ToQRect(const Rect& rect) {
    return {rect.left.value, rect.top.value, rect.width.value, rect.height.value};
}

inline Rect ToRect(const QRect& rect) { return {{rect.left()}, {rect.top()}, {rect.width()}, {rect.height()}}; }

} // namespace tessa::qt
