#pragma once
#include "bar/CommandBar.h"
#include "base/Signal.h"

#include <QMainWindow>
#include <QObject>

class QToolBar;

namespace tessa::qt {

class ToolBars;

/// Keeps the toolbars where their bands say, and tells the bands where the user has put them.
class BarDocking final : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    BarDocking(CommandBar& bar, QMainWindow& window, ToolBars& toolBars);

    /// Toolbars came or went.
    void Follow();
    /// Does now what would be done in the next turn of the event loop.
    void Flush();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Schedule();
    void Arrange();
    void ArrangeSide(DockSide side);
    void Float(const Band& band, QToolBar& bar);
    void Thaw();
    static void Frame(QToolBar& bar);
    void ShowFloating();
    void OnClosed(const QObject& closed);
    static void ShareColumn(QToolBar& bar);
    void Read();
    [[nodiscard]] std::vector<std::vector<Band*>> RowsOf(DockSide side) const;
    /// Whether the toolbars know how wide their boxes want to be now.
    enum class Hints { Fresh, Stale };
    void ShareRows(Hints hints);
    void ShareRow(const std::vector<Band*>& row, Hints hints);
    [[nodiscard]] std::vector<Band*> ToolBarBands() const;

    CommandBar& m_bar;
    QMainWindow& m_window;
    ToolBars& m_toolBars;
    bool m_scheduled = false; ///< the bands say something else than the window shows
    bool m_reading = false;
    Connections m_connections;
};

} // namespace tessa::qt
