#pragma once
#include "base/Signal.h"
#include "favorites/frmOrganizeFavorites.h"

#include <QDialog>

class QLayout;
class QLineEdit;
class QMenu;
class QPoint;
class QVBoxLayout;

namespace tessa::qt {

class FavoriteTree;

/// The window of `frmOrganizeFavorites`: the tree of Favorites, and beside it what can be done with a line. The form
/// must outlive it.
class OrganizeFavorites : public QDialog {
public:
    explicit OrganizeFavorites(frmOrganizeFavorites& form, QWidget* parent = nullptr);
    ~OrganizeFavorites() override;
    /// Escape in the address gives up what was typed there, and only then closes the dialog.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QVBoxLayout* Tree();
    QVBoxLayout* Buttons();
    QLayout* Address();
    void BindTree();
    /// What can be done with the selected line, at its place.
    void ShowMenu(const QPoint& place);
    void AddToMenu(QMenu& menu, Button& button, const QKeySequence& keys = {});
    [[nodiscard]] Text AskFolder();

    frmOrganizeFavorites& m_form;
    FavoriteTree* m_tree;
    QLineEdit* m_address = nullptr;
    Connections m_connections;
};

/// Shows the form over `parent` until it hides.
void ShowModal(frmOrganizeFavorites& form, QWidget* parent);

} // namespace tessa::qt
