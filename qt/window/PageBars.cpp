#include "qt/window/PageBars.h"

#include <algorithm>

namespace tessa::qt {

void PageBars::Add(QWidget& bar, Side side) { m_bars.push_back({&bar, side}); }

QRect PageBars::Lay(const QRect& whole) const {
    QRect left = whole;
    for (const auto& [widget, side] : m_bars) {
        if (!widget || widget->isHidden()) continue;
        const int height = std::min(widget->heightForWidth(left.width()) > 0 ? widget->heightForWidth(left.width())
                                                                             : widget->sizeHint().height(),
                                    std::max(left.height() - 1, 0));
        const int top = side == Side::Above ? left.top() : left.bottom() + 1 - height;
        widget->setGeometry(left.left(), top, left.width(), height);
        widget->raise();
        side == Side::Above ? left.setTop(top + height) : left.setBottom(top - 1);
    }
    return left;
}

} // namespace tessa::qt
