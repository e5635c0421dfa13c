#pragma once
#include "base/Signal.h"
#include "base/Units.h"
#include "forms/TabStrip.h"
#include "qt/strip/StripClock.h"
#include "qt/strip/TabFaces.h"
#include "qt/strip/TabHeads.h"
#include "qt/strip/TabLook.h"
#include "qt/strip/TabRow.h"
#include "tabs/TabDrag.h"

#include <QWidget>
#include <optional>
#include <set>
#include <vector>

namespace tessa::qt {

/// Shows a `TabStrip` as one widget that paints all tabs itself. So the strip costs what is visible of it, not what it
/// holds. It covers the row of tabs alone; the page area is laid beside it. The strip outlives the widget.
class TabStripView final : public QWidget {
    Q_OBJECT

public:
    /// The faces outlive the widget.
    explicit TabStripView(TabStrip& strip, const TabFaces& faces = TabFaces::Plain(), QWidget* parent = nullptr);

    /// A tab was clicked with Ctrl or Shift held: it is to be chosen with others, and not brought to the front.
    Signal<void(Tab&, Qt::KeyboardModifiers held)> ChooseRequested;
    /// A tab is about to be clicked with the pointer, without such a key; one that is chosen with others has been.
    Signal<void()> PlainClick;
    /// The tab's close button was pressed.
    Signal<void(Tab&)> CloseRequested;
    /// The button that lists all tabs was pressed; where the list is to drop down, its right upper corner.
    Signal<void(QPoint corner)> ListRequested;
    /// The sound mark of a tab was pressed.
    Signal<void(Tab&)> MuteRequested;
    /// The right button went down at a point of the widget.
    Signal<void(QPoint)> RightButtonDown;
    /// Data is dragged over a point, with or without text; text was dropped.
    Signal<void(bool hasText, QPointF)> DragOver;
    Signal<void(const Text&)> Drop;
    /// The indexes of views, that of the tab which the pointer holds first.
    using Views = std::vector<std::int32_t>;
    /// Tabs are dragged out of the row, to that point of the screen; they come back into the row; they are let go
    /// outside.
    Signal<void(const Views&, QPoint)> DraggedOut;
    Signal<void(const Views&)> DraggedBack;
    Signal<void(const Views&, QPoint)> DroppedOut;
    /// Tabs were let go in the row, and are to be of that group from now on; of none for 0.
    Signal<void(const Views&, std::int32_t group)> Regrouped;
    /// The right button went down on the head of a group.
    Signal<void(const TabGroup&)> GroupMenuRequested;
    /// The button for a new tab, or a double click on the empty part of the row.
    Signal<void()> BlankRequested;
    /// The right button went down on the button for a new tab.
    Signal<void()> NewMenuRequested;
    /// Tabs came, went, moved or another one was selected.
    Signal<void()> Rearranged;
    /// The font has made the row higher or lower.
    Signal<void()> RowHeightChanged;
    /// What the strip shows has changed.
    Signal<void()> Changed;

    /// How high the row is; never less than 22.
    [[nodiscard]] Pixels RowHeight() const { return m_rowHeight; }
    [[nodiscard]] TabPlacement Placement() const { return m_strip.Placement(); }
    /// The page icon of the tabs with this tag has changed.
    void RefreshIcons(std::int32_t tag);
    /// What the faces say of tabs may have changed.
    void RefreshFacesSoon() { m_clock.Note(TabStripChange::Faces); }
    /// The tab at a point of the widget; nothing where no tab is.
    [[nodiscard]] Tab* FindTabAt(QPoint point);
    /// Where the tab at a position stands, even when it is scrolled out. Empty for no position of the strip.
    [[nodiscard]] QRect TabPlace(std::size_t position);
    [[nodiscard]] QRect ClosePlace(std::size_t position);
    [[nodiscard]] QRect SoundPlace(std::size_t position);
    /// The button that lists all tabs; empty while all tabs fit into the row.
    [[nodiscard]] QRect ListPlace();
    /// The button for a new tab.
    [[nodiscard]] QRect NewPlace();
    /// Where the group's name stands; empty for a group that is gone.
    [[nodiscard]] QRect HeadPlace(const TabGroup* group);
    [[nodiscard]] const TabStrip& Model() const { return m_strip; }
    /// What a click on the tab does.
    void Click(Tab& tab);
    /// What a click on the head does: hides its tabs, or shows them again.
    void ToggleFolded(TabGroup& group);
    /// A group in words: its name, its tabs, and what is to be said of them.
    [[nodiscard]] Text Describe(const TabGroup& group) const { return m_heads.Describe(group); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    enum class Part { None, Tab, Head, Sound, Close, Back, Forward, List, New };

    /// What is under the pointer.
    struct Spot {
        Part part = Part::None;
        std::size_t position = 0;
        bool operator==(const Spot&) const = default;
    };

    /// What a tab showed when it was last painted, or a head.
    struct Face {
        Text key{}, caption{};
        TabImage image = TabImage::None;
        bool asks = false;
        TabSound sound = TabSound::None;
        TabNews news = TabNews::Unknown;
        TabColour colour = TabColour::None;
        TabPane pane = TabPane::None;
        bool chosen = false;
        std::size_t loading = 0; ///< of a head
        bool changed = false;
        bool operator==(const Face&) const = default;
    };

    /// Does a layout that is due now rather than at the next turn.
    void Settle();
    void Relayout();
    void RefreshFaces();
    void Scroll(int offset);
    void Measure();
    [[nodiscard]] Face FaceOf(const TabRowItem& item) const;
    void RememberFaces();
    void RememberPainted(std::size_t item, const QRegion& painted);
    void PaintItem(QPainter& painter, const TabLook& look, const TabRowItem& item) const;
    [[nodiscard]] TabFace PaintedFace(const TabRowItem& item) const;
    void PlaceFace(TabFace& face, std::size_t position) const;
    [[nodiscard]] Spot SpotAt(QPoint point) const;
    [[nodiscard]] Spot SpotUnderPointer() const;
    [[nodiscard]] QRect SpotPlace(const Spot& spot) const;
    void SetHover(const Spot& spot);
    void ShowToolTip(QPoint point, QPoint globalPoint);
    void StepTo(std::size_t position);
    bool PressToChoose(QPoint point, Qt::KeyboardModifiers held);
    void PressLeft(QPoint point);
    /// Whether the part is one of those before and behind all tabs, and has done its work.
    bool PressBesideTabs(Part part);
    void ReleaseHead(QPoint point);
    [[nodiscard]] QRect HeadAt(std::size_t position) const;
    void PressRight(QPoint point);
    void CloseByMiddleButton(QPoint point);
    void Drag(QPoint point);
    bool BeginDrag(QPoint point);
    bool DragOut(QPoint point);
    void DragAlong(int x);
    void DragOverHead(int x, const TabRowItem& head);
    void ShowJoining(std::optional<int> x);
    void EndDrag(QPoint point);
    [[nodiscard]] QRect SpanPlace(TabDrag::Span span) const;
    void OfferDrag(QDropEvent& event);

    TabStrip& m_strip;
    const TabFaces& m_source;
    TabDrag m_drag; ///< holds nothing before the pointer has moved
    TabHeads m_heads;
    TabRow m_row;
    StripClock m_clock;
    std::vector<Face> m_faces; ///< of the visible items, from the first visible one on
    std::set<std::int32_t> m_changedIcons;
    std::size_t m_selected = 0; ///< position at the last layout
    Text m_revealed;            ///< key of the selected tab that was last scrolled into view
    Spot m_hover;
    std::optional<Text> m_closing;         ///< key of the tab whose close button is held down
    std::optional<std::int32_t> m_folding; ///< the group whose head is held down
    std::optional<Text> m_dragged;         ///< key of the tab that the left button holds
    bool m_endsChoice = false;             ///< when the button goes up
    QPoint m_dragStart;
    bool m_dragging = false;
    bool m_draggedOut = false;    ///< and the pointer is outside the row
    bool m_behindHead = false;    ///< the dragged tabs are meant to come behind the head at their right
    bool m_wasBehindHead = false; ///< when they were taken hold of
    Pixels m_rowHeight{22};
    int m_wheel = 0; ///< what of the wheel's turning has not moved a tab yet
    Connections m_connections;
};

} // namespace tessa::qt
