#pragma once
#include "base/Signal.h"
#include "commands/Customization.h"
#include "qt/bar/customize/QtToolDrag.h"

#include <QDialog>
#include <QMainWindow>
#include <QPointer>
#include <memory>

namespace tessa::qt {

class QtCommandsPage;
class QtLookPage;
class QtToolbarsPage;

/// The customisation dialog. While it is open the tools of the window are dragged about instead of clicked.
class QtCustomizeDialog final : public QDialog {
    Q_OBJECT

public:
    /// Both outlive it.
    QtCustomizeDialog(CommandBar& bar, QMainWindow& window);

private:
    void Follow();

    Customization m_custom;
    std::unique_ptr<QtToolDrag> m_drag; ///< while the dialog is open
    QtToolbarsPage* m_toolbars;
    QtCommandsPage* m_commands;
    QtLookPage* m_look;
    Connections m_connections;
};

/// Opens the customisation dialog, one at a time.
class QtCustomize final : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    QtCustomize(CommandBar& bar, QMainWindow& window) : m_bar(bar), m_window(window) {}
    ~QtCustomize() override;

    /// Opens the dialog, or brings the one that is open to the front.
    void Open();
    [[nodiscard]] QtCustomizeDialog* Dialog() const { return m_dialog; }

    /// The user has closed the dialog.
    Signal<void()> Closed;

private:
    void OnFinished();

    CommandBar& m_bar;
    QMainWindow& m_window;
    QPointer<QtCustomizeDialog> m_dialog;
};

} // namespace tessa::qt
