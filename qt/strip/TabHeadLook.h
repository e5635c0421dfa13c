#pragma once
#include "forms/TabStrip.h"

#include <QColor>
#include <QRect>
#include <QString>

class QFontMetrics;
class QPainter;
class QPalette;

namespace tessa::qt {

/// The head before tabs of a group as it is to be painted.
struct TabHeadFace {
    QString name; ///< empty for tabs that do not stand with the first ones
    TabColour colour = TabColour::None;
    bool folded = false;
    bool changed = false;
    std::size_t count = 0;   ///< of its tabs
    std::size_t loading = 0; ///< of those that load
    bool hovered = false;
    bool aimed = false; ///< what is dragged would come into the group
    QRect place;
};

/// How the heads of groups look in the strip: a box of the group's colour, with an arrow, the name, and what there is
/// to say of the group.
class TabHeadLook {
public:
    explicit TabHeadLook(const QPalette& palette);

    void Paint(QPainter& painter, const TabHeadFace& face) const;
    /// Black or white, whichever is read well on that ground.
    [[nodiscard]] static QColor InkOn(const QColor& ground);
    /// What the name stands on, also while the pointer is there.
    [[nodiscard]] static QColor GroundOf(TabColour colour, bool hovered);
    /// How wide the head is when it is not cut.
    [[nodiscard]] static int Width(const QFontMetrics& font, const TabHeadFace& face);

private:
    static void PaintWords(QPainter& painter, const TabHeadFace& face, const QRect& box, const QColor& ink);

    QColor m_text;
};

} // namespace tessa::qt
