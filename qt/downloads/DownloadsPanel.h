#pragma once
#include "base/Signal.h"
#include "downloads/frmDownloads.h"
#include "qt/base/DockedPanel.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class QGridLayout;
class QMainWindow;

namespace tessa::qt {

/// The panel of the window that shows the downloads. It takes at most a quarter of the window until its user drags it
/// wider. It costs nothing while it is hidden.
class DownloadsPanel final : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    DownloadsPanel(frmDownloads& form, QMainWindow& window);
    ~DownloadsPanel() override;

    /// Gives the keyboard back to the page.
    [[nodiscard]] Signal<void()>& FocusPage() { return m_panel.KeyboardFree; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Open();
    void Close();
    [[nodiscard]] QWidget* Contents();
    void AddButtons(QWidget& contents);
    void LayButtons();

    frmDownloads& m_form;
    QMainWindow& m_window;
    DockedPanel m_panel;
    QPointer<QGridLayout> m_buttons;
    QTimer m_refresh;
    int m_columns = 0;
    Connections m_connections;
};

} // namespace tessa::qt
