#pragma once
#include "base/Signal.h"
#include "tabs/frmTaskView.h"

#include <QDialog>
#include <QObject>
#include <QPointer>
#include <QTimer>

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QTreeWidget;

namespace tessa::qt {

/// The window of `frmTaskView`: lays out its controls and binds them. The form must outlive it.
class TaskDialog final : public QDialog {
    Q_OBJECT

public:
    TaskDialog(frmTaskView& form, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeTasks();
    QHBoxLayout* Sorting();
    QWidget* Buttons();
    void BindTasks();
    void BindSorting(QComboBox& column, QCheckBox& descending);

    frmTaskView& m_form;
    QTreeWidget* m_tasks;
    Connections m_connections;
};

/// Shows the task view over the main window while its form is shown, and has it measured once a second. The dialog is
/// made when it is first shown.
class TaskViewPresenter final : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    TaskViewPresenter(frmTaskView& form, QWidget& window);
    ~TaskViewPresenter() override;

private:
    void Show(bool visible);

    frmTaskView& m_form;
    QWidget& m_window;
    QPointer<TaskDialog> m_dialog;
    QTimer m_refresh;
    Connections m_connections;
};

} // namespace tessa::qt
