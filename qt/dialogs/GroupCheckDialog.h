#pragma once
#include "base/Signal.h"
#include "groups/frmGroupCheck.h"

#include <QDialog>

class QTreeWidget;

namespace tessa::qt {

/// The window of `frmGroupCheck`: the addresses with what has become of them. The form must outlive it.
class GroupCheckDialog : public QDialog {
public:
    explicit GroupCheckDialog(frmGroupCheck& form, QWidget* parent = nullptr);

private:
    void MakeList();
    [[nodiscard]] QWidget* Buttons();

    frmGroupCheck& m_form;
    QTreeWidget* m_list;
    Connections m_connections;
};

/// Shows the form over `parent` until it hides.
void ShowModal(frmGroupCheck& form, QWidget* parent);

} // namespace tessa::qt
