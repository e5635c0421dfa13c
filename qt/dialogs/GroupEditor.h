#pragma once
#include "base/Signal.h"
#include "groups/frmTessaGroup.h"

#include <QDialog>

class QBoxLayout;
class QFrame;
class QPushButton;

namespace tessa::qt {

class GroupList;

/// The window of `frmTessaGroup`: lays out its controls and binds them. The form must outlive it.
class GroupEditor : public QDialog {
public:
    explicit GroupEditor(frmTessaGroup& form, QWidget* parent = nullptr);

private:
    QWidget* Name();
    QWidget* Entries();
    QWidget* Manner();
    QWidget* Buttons();
    QFrame* Entry();
    QPushButton* Add(QBoxLayout& row, Button& button, const char* name, char16_t accessKey);
    void AddListKeys();
    void ShowEntry(bool visible);
    void ShowHeight(Twips height);

    frmTessaGroup& m_form;
    GroupList* m_list = nullptr;
    QFrame* m_entry = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_commit = nullptr;
    int m_formHeight = 0; ///< what the form asked for last, in logical pixels
    Connections m_connections;
};

/// Shows the form over `parent` until it hides.
void ShowModal(frmTessaGroup& form, QWidget* parent);

} // namespace tessa::qt
