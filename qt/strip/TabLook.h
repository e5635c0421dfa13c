#pragma once
#include "qt/strip/TabFaces.h"

#include <QColor>
#include <QIcon>
#include <QRect>
#include <QString>

class QFontMetrics;
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

/// How the tab strip looks, all from the palette. The selected tab joins the page beside the row, with a line of the
/// highlight colour at its outer edge.
class TabLook {
public:
    TabLook(const QPalette& palette, TabPlacement placement);

    void PaintBackground(QPainter& painter, const QRect& row) const;
    void PaintTab(QPainter& painter, const TabFace& face) const;
    void PaintHead(QPainter& painter, const TabHeadFace& face) const;
    /// How wide the head is when it is not cut.
    [[nodiscard]] static int HeadWidth(const QFontMetrics& font, const TabHeadFace& face);
    void PaintArrow(QPainter& painter, const QRect& place, Qt::LayoutDirection towards, bool enabled,
                    bool hovered) const;
    void PaintListButton(QPainter& painter, const QRect& place, bool hovered) const;
    /// The plus of the button for a new tab.
    void PaintNewButton(QPainter& painter, const QRect& place, bool hovered) const;
    /// The picture "Red": the page is loading.
    static void PaintBusyMark(QPainter& painter, const QRect& place);
    /// The page waits for an answer.
    static void PaintAskMark(QPainter& painter, const QRect& place);
    /// A dot at the corner of an icon: the page says something new. `ground` is what the icon stands on.
    static void PaintNewsMark(QPainter& painter, const QRect& icon, const QColor& ground);
    /// A loudspeaker, with waves when it is heard and crossed out when it is muted.
    static void PaintSoundMark(QPainter& painter, const QRect& place, const QColor& ink, TabSound sound);
    /// A sheet with a folded corner, for a page that has no icon.
    static void PaintBlankPage(QPainter& painter, const QRect& place, const QColor& color);

private:
    void PaintBody(QPainter& painter, const TabFace& face) const;
    void PaintChosen(QPainter& painter, const TabFace& face) const;
    void PaintColour(QPainter& painter, const TabFace& face) const;
    void PaintPane(QPainter& painter, const TabFace& face) const;
    void PaintCaption(QPainter& painter, const TabFace& face, int left) const;
    void PaintIcon(QPainter& painter, const TabFace& face, const QRect& icon) const;
    void PaintHeadWords(QPainter& painter, const TabHeadFace& face, const QRect& box, const QColor& ink) const;
    static void PaintHeadArrow(QPainter& painter, const QPointF& centre, bool folded);
    void PaintSound(QPainter& painter, const TabFace& face) const;
    void PaintClose(QPainter& painter, const TabFace& face) const;

    TabPlacement m_placement;
    QColor m_row, m_line, m_selected, m_hovered, m_text, m_quietText, m_accent, m_private, m_faintText;
};

} // namespace tessa::qt
