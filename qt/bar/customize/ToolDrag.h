#pragma once
#include "commands/Customization.h"
#include "qt/bar/customize/BandPanels.h"

#include <QBasicTimer>
#include <QMainWindow>
#include <QObject>
#include <QPointer>
#include <optional>

class QDropEvent;
class QMouseEvent;

namespace tessa::qt {

/// While it lives, the tools on a window's toolbars and menu bar are dragged and not clicked. They go to another place,
/// onto another bar or menu, or off all of them, which removes them. A tool that opens a menu opens it to be arranged.
class ToolDrag final : public QObject {
    Q_OBJECT

public:
    /// All outlive it. What is dropped on the window or the dialog, but on no band, is removed.
    ToolDrag(Customization& custom, QMainWindow& window, QWidget& dialog);
    ~ToolDrag() override;

    /// Shows what was arranged.
    void Follow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    /// A place on a bar: the entry there, none below 0.
    struct Spot {
        QPointer<QWidget> bar;
        Band* band = nullptr;
        int entry = -1;
        QPoint point; ///< in the bar
    };

    [[nodiscard]] QWidget* BarOf(QWidget& widget) const;
    [[nodiscard]] Spot SpotAt(QWidget& watched, const QPoint& point) const;
    [[nodiscard]] std::optional<DraggedTool> ToolAt(const Spot& spot) const;
    bool Escape(const QWidget& watched, QEvent& event);
    bool Press(QWidget& watched, const QMouseEvent& event);
    bool Move(const QMouseEvent& event);
    bool Release();
    void BeginDrag(const Spot& spot);
    bool DragOver(QWidget& watched, QDropEvent& event);
    bool DragOverBar(const Spot& spot, QDropEvent& event, const DraggedTool& dragged);
    bool Drop(QWidget& watched, QDropEvent& event);
    void DragEnds();
    void OpenMenu(const Spot& spot);
    void ShowPlace(const Spot& spot);
    void AcceptDrops(bool accept);
    void MarkEmpty(QWidget& bar);

    Customization& m_custom;
    QMainWindow& m_window;
    QWidget& m_dialog;
    BandPanels m_panels;
    std::optional<Spot> m_pressed;
    QPoint m_pressedAt; ///< on the screen
    Spot m_hovered;
    QBasicTimer m_hover;
    QPointer<QWidget> m_line; ///< shows where a dragged tool would go
};

} // namespace tessa::qt
