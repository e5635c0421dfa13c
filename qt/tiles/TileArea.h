#pragma once
#include "base/Signal.h"
#include "qt/strip/StripClock.h"
#include "qt/strip/TabIcons.h"
#include "qt/tiles/PaneFocus.h"
#include "qt/tiles/TileDropZone.h"
#include "qt/tiles/TileHeader.h"
#include "tiles/Tiles.h"

#include <QWidget>
#include <map>
#include <optional>

namespace tessa::qt {

/// What the headers show of a tab.
class TileFaces : public TabIcons {
public:
    /// The whole title.
    [[nodiscard]] virtual QString TitleOf(const Tab& tab) const = 0;
    /// Whether so many pages may be shown at once. May ask the user.
    [[nodiscard]] virtual bool MayShow(std::size_t count) const = 0;
};

/// What lies around the pages that are shown side by side: dividers, headers, and where a dragged tab would come. It
/// lies below the pages. While a page is shown alone it is hidden and costs nothing.
class TileArea final : public QWidget {
public:
    /// A child of the pages' own parent.
    explicit TileArea(QWidget* pageArea);
    ~TileArea() override;

    /// Shows those tabs from now on; all outlive it.
    void Attach(Tiles& tiles, TabStrip& strip, const TileFaces& faces);
    /// What of the area is for the page of that view. Lays itself into the area.
    [[nodiscard]] QRect PageRect(const QRect& area, std::int32_t index);
    /// Takes titles and icons anew, in a while.
    void RefreshFaces();

    /// A tab is dragged over that point of the screen: shows where it would come.
    void ShowDrop(std::int32_t index, QPoint at);
    /// It is let go there. False when it would come nowhere.
    bool Drop(std::int32_t index, QPoint at);
    /// Several: the first one comes there, and the others beside it, if so many may be shown.
    bool Drop(const std::vector<std::int32_t>& indexes, QPoint at);
    void HideDrop() { m_dropZone.hide(); }
    /// Lets the arrow keys move the dividers at the pane in focus, until its page gets the keyboard again.
    void MoveDividers();

    Signal<void(std::int32_t index)> CloseRequested;
    /// The pop-up of that tab is wanted.
    Signal<void(std::int32_t index)> MenuRequested;
    /// Pages have other places than before.
    Signal<void()> Changed;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    struct Aim {
        std::int32_t at;
        TileEdge edge;
        QRect zone; ///< in the page area
    };

    void OnTilesChanged();
    void Lay();
    void LayHeaders();
    TileHeader* MakeHeader(std::int32_t index);
    void ShowFaces();
    [[nodiscard]] std::optional<Aim> AimAt(std::int32_t index, QPoint at) const;
    void Hover(const TileDivider* divider);
    void Step(bool upright, int by);
    void EqualiseFocused();
    void LeaveDividers();
    [[nodiscard]] bool IsMarked(const TileDivider& divider) const;
    [[nodiscard]] TileMeasures Measures() const;

    Tiles* m_tiles = nullptr;
    TabStrip* m_strip = nullptr;
    const TileFaces* m_shownFaces = nullptr;
    TileDropZone m_dropZone;
    QRect m_area;        ///< in the page area
    TilePlaces m_places; ///< in the page area
    PaneFocus m_focus{*this, m_places};
    std::map<std::int32_t, TileHeader*> m_headers;
    StripClock m_clock;
    std::optional<TileDivider> m_held;  ///< that is dragged
    std::optional<TileDivider> m_hover; ///< that the pointer is on
    bool m_stale = true;
    Connections m_connections;
};

} // namespace tessa::qt
