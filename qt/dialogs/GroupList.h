#pragma once
#include "base/Signal.h"
#include "groups/frmTessaGroup.h"

#include <QTreeView>

class QMenu;

namespace tessa::qt {

class GroupListItems;

/// The addresses of the group that is being edited, with columns for how they open. However long the list, only what is
/// seen is laid out. The user can drag an entry to another place. The form outlives it.
class GroupList final : public QTreeView {
    Q_OBJECT

public:
    enum Column { Address, Place, Asleep, Muted, TextSize, kColumns };

    explicit GroupList(frmTessaGroup& form);

    /// What dropping the selected entry at a point of the viewport does: it goes between the two entries there.
    void MoveTo(QPoint point);
    /// Fills a menu with what can be planned for that entry; of one column alone, or of all for `Address`.
    void FillMenu(QMenu& menu, std::size_t place, Column column);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void SetUp();
    void SetUpColumns();
    void Select(std::int32_t index);
    void ShowToolTip(QPoint point, QPoint globalPoint);
    void Click(const QModelIndex& index);
    void PopUp(const QModelIndex& index, Column column, QPoint globalPoint);

    frmTessaGroup& m_form;
    ListBox& m_list;
    GroupListItems* m_model;
    Connections m_connections;
};

} // namespace tessa::qt
