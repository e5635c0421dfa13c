#pragma once
#include "base/Signal.h"
#include "favorites/frmAddFavorite.h"

#include <QDialog>

namespace tessa::qt {

class FavoriteTree;

/// The window of `frmAddFavorite`: a name, and the tree of folders to keep the page in. The form must outlive it.
class AddFavorite : public QDialog {
public:
    explicit AddFavorite(frmAddFavorite& form, QWidget* parent = nullptr);

private:
    QWidget* Buttons();
    void BindTree();

    frmAddFavorite& m_form;
    FavoriteTree* m_tree;
    Connections m_connections;
};

/// Shows the form over `parent` until it hides.
void ShowModal(frmAddFavorite& form, QWidget* parent);

} // namespace tessa::qt
