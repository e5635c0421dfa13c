#pragma once
#include "bar/CommandBar.h"
#include "base/Signal.h"

#include <QMainWindow>
#include <QObject>

namespace tessa::qt {

/// Shows the toolbars of a window as the command bar says: icon size, text beside or under icons, tool tips.
class ToolBarLook final : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    ToolBarLook(CommandBar& bar, QMainWindow& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show(const BarLook& look);

    CommandBar& m_bar;
    QMainWindow& m_window;
    Connections m_connections;
};

} // namespace tessa::qt
