#pragma once
#include "qt/strip/TabFaces.h"

#include <QColor>
#include <QIcon>
#include <QRect>
#include <QString>

class QPainter;
class QPalette;

namespace tessa::qt {

/// One tab as it is to be painted.
struct TabFace {
    QString caption;
    QIcon icon;
    bool busy = false;
    bool isPrivate = false;
    bool asks = false; ///< the page waits for an answer
    TabNews news = TabNews::Unknown;
    TabColour colour = TabColour::None;
    TabSound sound = TabSound::None;
    bool soundHovered = false;
    bool selected = false;
    bool chosen = false; ///< together with others
    bool hovered = false;
    bool focused = false;
    bool pinned = false;
    TabPane pane = TabPane::None;
    bool dividerShown = true; ///< the line to the next tab
    bool closeShown = false;
    bool closeHovered = false;
    QRect place;
    QRect closePlace;
    QRect soundPlace;
};

/// How tabs and buttons of the strip look, all from the palette. The selected tab joins the page beside the row, with a
/// line of the highlight colour at its outer edge.
class TabLook {
public:
    TabLook(const QPalette& palette, TabPlacement placement);

    void PaintBackground(QPainter& painter, const QRect& row) const;
    void PaintTab(QPainter& painter, const TabFace& face) const;
    void PaintArrow(QPainter& painter, const QRect& place, Qt::LayoutDirection towards, bool enabled,
                    bool hovered) const;
    void PaintListButton(QPainter& painter, const QRect& place, bool hovered) const;
    /// The plus of the button for a new tab.
    void PaintNewButton(QPainter& painter, const QRect& place, bool hovered) const;

private:
    void PaintBody(QPainter& painter, const TabFace& face) const;
    void PaintChosen(QPainter& painter, const TabFace& face) const;
    void PaintColour(QPainter& painter, const TabFace& face) const;
    void PaintPane(QPainter& painter, const TabFace& face) const;
    void PaintCaption(QPainter& painter, const TabFace& face, int left) const;
    void PaintSound(QPainter& painter, const TabFace& face) const;
    void PaintClose(QPainter& painter, const TabFace& face) const;

    TabPlacement m_placement;
    QColor m_row, m_line, m_selected, m_hovered, m_text, m_quietText, m_accent, m_private, m_faintText;
};

} // namespace tessa::qt
