#pragma once
#include "pages/frmDownloads.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>

class QDockWidget;
class QMainWindow;

/// The pane of the window that shows the downloads. It costs nothing while it is hidden.
class QtDownloadsPanel final : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    QtDownloadsPanel(frmDownloads& form, QMainWindow& window);
    ~QtDownloadsPanel() override;

    /// Gives the keyboard back to the page. Filled in by the program.
    std::function<void()> FocusPage;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Open();
    void Close();
    [[nodiscard]] QWidget* Contents();

    frmDownloads& m_form;
    QMainWindow& m_window;
    QPointer<QDockWidget> m_pane;
    QTimer m_refresh;
};
