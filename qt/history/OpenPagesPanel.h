#pragma once
#include "base/Signal.h"
#include "history/frmOpenPages.h"
#include "qt/base/DockedPanel.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class QListWidget;
class QMainWindow;

namespace tessa::qt {

/// The panel of the window that searches in all open pages. It costs nothing while it is hidden.
class OpenPagesPanel final : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    OpenPagesPanel(frmOpenPages& form, QMainWindow& window);
    ~OpenPagesPanel() override;

    /// Gives the keyboard back to the page.
    [[nodiscard]] Signal<void()>& FocusPage() { return m_panel.KeyboardFree; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Open();
    [[nodiscard]] QWidget* Contents();
    void ShowLines();
    bool OnKey(QObject* watched, int key);

    frmOpenPages& m_form;
    QMainWindow& m_window;
    DockedPanel m_panel;
    QPointer<QListWidget> m_list;
    QTimer m_refresh;
    Connections m_connections;
};

} // namespace tessa::qt
