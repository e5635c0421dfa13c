#pragma once
#include "common/Text.h"

#include <QFrame>
#include <QIcon>
#include <functional>
#include <vector>

class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class QStandardItemModel;

/// One tab as the list shows it.
struct QtTabListEntry {
    Text key;
    QString title;
    QString address;
    QIcon icon;
    bool selected = false;
};

/// A list of all tabs that drops down, with a box to search them by title or address. Typing narrows the list, the
/// arrow keys go through it, Enter or a click chooses.
class QtTabList final : public QFrame {
    Q_OBJECT

public:
    explicit QtTabList(QWidget* parent);

    /// Drops down from a point of the screen with these tabs, the selected one marked.
    void Open(const std::vector<QtTabListEntry>& tabs, QPoint corner);

    /// A tab was chosen, by its key. The list is closed by then.
    std::function<void(const Text& key)> Chosen;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Choose(const QModelIndex& index);
    void Mark(int row);

    QLineEdit* m_search;
    QListView* m_list;
    QStandardItemModel* m_tabs;
    QSortFilterProxyModel* m_found;
};
