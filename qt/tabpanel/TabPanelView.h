#pragma once
#include "base/Signal.h"
#include "qt/tabpanel/TabPanelLines.h"
#include "qt/tabpanel/TabPanelModel.h"

#include <QTimer>
#include <QTreeView>
#include <optional>
#include <vector>

class QMimeData;

namespace tessa::qt {

/// The lines of the list of tabs, and what a hand and the keyboard do with them. A click brings a tab to the front.
/// With Ctrl or Shift it chooses tabs. Lines are dragged to another place, out to the pages, and as links to other
/// programs.
class TabPanelView final : public QTreeView {
    Q_OBJECT

public:
    using Views = std::vector<std::int32_t>;

    /// Both outlive it.
    TabPanelView(frmTabPanel& form, const TabIcons& icons, QWidget* parent = nullptr);

    /// Shows the form's entries.
    void Refresh();
    void RefreshFaces() { m_model->RefreshFaces(); }
    [[nodiscard]] TabPanelModel& Lines() { return *m_model; }
    /// What another program gets of these addresses.
    [[nodiscard]] static QMimeData* LinksOf(const std::vector<Text>& addresses);

    /// The pop-up of that tab is wanted, or that of a group.
    Signal<void(std::int32_t view)> MenuRequested;
    Signal<void(std::int32_t group)> GroupMenuRequested;
    /// Tabs are dragged over the rest of the window, come back, or are let go there.
    Signal<void(const Views&, QPoint at)> DraggedOut;
    Signal<void()> DraggedBack;
    Signal<void(const Views&, QPoint at)> DroppedOut;
    /// Somebody types a letter, or goes up from the first line.
    Signal<void(const QString& letters)> Typed;
    /// Escape.
    Signal<void()> Left;

    void paintEvent(QPaintEvent* event) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;

private:
    /// A button was pressed there and is held.
    struct Press {
        std::int32_t view = 0;
        TabPanelLines::Part part = TabPanelLines::Part::Line;
        QPoint at;
    };

    void BeAPlainList();
    void SelectRows();
    void ShowFolded();
    [[nodiscard]] Press PressAt(QPoint point) const;
    void ClickOn(const Press& press, Qt::KeyboardModifiers held);
    bool OnKey(const QKeyEvent& event);
    bool OnWholeKey(const QKeyEvent& event);
    void Fold(std::int32_t line, bool fold);
    bool OnMove(const QKeyEvent& event);
    void Drag(QPoint point);
    void DragInside(QPoint point);
    void DragAsLinks();
    void EndDrag();
    void Drop(QPoint point);
    void ShowPlace(std::optional<TabPanelPlace> place);
    void PaintPlace(QPainter& painter, const TabPanelPlace& place) const;
    void ScrollAtEdge();
    [[nodiscard]] TabPanelPlace PlaceAt(QPoint point) const;

    frmTabPanel& m_form;
    TabPanelModel* m_model;
    TabPanelLines* m_lines;
    std::optional<Press> m_press;
    Views m_dragged;                      ///< none while nothing is dragged
    bool m_out = false;                   ///< and it is outside the list
    std::int32_t m_dragging = 0;          ///< the line by which it is
    std::optional<TabPanelPlace> m_place; ///< where it would come
    std::int32_t m_front = 0;
    QTimer m_scroll;
};

} // namespace tessa::qt
