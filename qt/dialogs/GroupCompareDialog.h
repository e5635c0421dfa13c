#pragma once
#include "base/Signal.h"
#include "groups/frmGroupCompare.h"

#include <QDialog>

class QTreeWidget;

namespace tessa::qt {

/// The window of `frmGroupCompare`: the addresses of two groups, and where they stand. The form must outlive it.
class GroupCompareDialog : public QDialog {
public:
    explicit GroupCompareDialog(frmGroupCompare& form, QWidget* parent = nullptr);

private:
    void MakeList();

    frmGroupCompare& m_form;
    QTreeWidget* m_list;
    Connections m_connections;
};

/// Shows the form over `parent` until it hides.
void ShowModal(frmGroupCompare& form, QWidget* parent);

} // namespace tessa::qt
