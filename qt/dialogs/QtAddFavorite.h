#pragma once
#include "base/Signal.h"
#include "favorites/frmAddFavorite.h"

#include <QDialog>

namespace tessa::qt {

class QtFavoriteTree;

/// The window of `frmAddFavorite`: a name, and the tree of folders to keep the page in. The form must outlive it.
class QtAddFavorite : public QDialog {
public:
    explicit QtAddFavorite(frmAddFavorite& form, QWidget* parent = nullptr);

private:
    QWidget* Buttons();
    void BindTree();

    frmAddFavorite& m_form;
    QtFavoriteTree* m_tree;
    Connections m_connections;
};

/// Shows the form over `parent` until it hides.
void ShowModal(frmAddFavorite& form, QWidget* parent);

} // namespace tessa::qt
