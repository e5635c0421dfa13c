#pragma once
#include "base/Signal.h"
#include "commands/Customization.h"
#include "qt/bar/customize/ToolDrag.h"

#include <QDialog>
#include <QMainWindow>
#include <QPointer>
#include <memory>

namespace tessa::qt {

class CommandsPage;
class KeysPage;
class LookPage;
class ToolbarsPage;

/// The customisation dialog. While it is open the tools of the window are dragged about instead of clicked.
class CustomizeDialog final : public QDialog {
    Q_OBJECT

public:
    /// Both outlive it.
    CustomizeDialog(CommandBar& bar, QMainWindow& window);

private:
    void Follow();

    Customization m_custom;
    std::unique_ptr<ToolDrag> m_drag; ///< while the dialog is open
    ToolbarsPage* m_toolbars;
    CommandsPage* m_commands;
    KeysPage* m_keys;
    LookPage* m_look;
    Connections m_connections;
};

/// Opens the customisation dialog, one at a time.
class Customize final : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    Customize(CommandBar& bar, QMainWindow& window) : m_bar(bar), m_window(window) {}
    ~Customize() override;

    /// Opens the dialog, or brings the one that is open to the front.
    void Open();
    [[nodiscard]] CustomizeDialog* Dialog() const { return m_dialog; }

    /// The user has closed the dialog.
    Signal<void()> Closed;

private:
    void OnFinished();

    CommandBar& m_bar;
    QMainWindow& m_window;
    QPointer<CustomizeDialog> m_dialog;
};

} // namespace tessa::qt
