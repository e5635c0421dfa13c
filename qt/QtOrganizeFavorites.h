#pragma once
#include "favorites/frmOrganizeFavorites.h"

#include <QDialog>

class QtFavoriteTree;
class QVBoxLayout;

/// The window of `frmOrganizeFavorites`: the tree of Favorites, and beside it what can be done with a line. The form
/// must outlive it.
class QtOrganizeFavorites : public QDialog {
public:
    explicit QtOrganizeFavorites(frmOrganizeFavorites& form, QWidget* parent = nullptr);
    ~QtOrganizeFavorites() override;

private:
    QVBoxLayout* Tree();
    QVBoxLayout* Buttons();
    void BindTree();
    [[nodiscard]] Text AskFolder();

    frmOrganizeFavorites& m_form;
    QtFavoriteTree* m_tree;
};

/// Shows the form over `parent` until it hides.
void ShowModal(frmOrganizeFavorites& form, QWidget* parent);
