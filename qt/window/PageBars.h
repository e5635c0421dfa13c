#pragma once
#include <QPointer>
#include <QRect>
#include <QWidget>
#include <vector>

namespace tessa::qt {

/// The bars above and below the page, which take their room from it.
class PageBars {
public:
    enum class Side { Above, Below };

    /// A bar that is shown or hidden calls `Changed`. One that ends is no longer laid.
    void Add(QWidget& bar, Side side);
    /// Places the bars that are shown and answers what they leave of the whole page area.
    [[nodiscard]] QRect Lay(const QRect& whole) const;

private:
    struct Bar {
        QPointer<QWidget> widget;
        Side side;
    };
    std::vector<Bar> m_bars;
};

} // namespace tessa::qt
