#pragma once
#include "base/Signal.h"
#include "base/Text.h"

#include <QFrame>
#include <QIcon>
#include <vector>

class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class QStandardItemModel;

namespace tessa::qt {

/// One tab as the list shows it.
struct TabListEntry {
    Text key;
    QString title;
    QString address; ///< of its page, or of the one that it waits for while it shows none
    QString tip;     ///< all that there is to say of it, a line each
    QIcon icon;
    bool selected = false;
};

/// A list of all tabs that drops down, with a box to search them by title or address. Each has its icon, its host and a
/// button that closes it. Typing narrows the list, the arrow keys go through it, Enter or a click chooses, Ctrl+W
/// closes the marked tab.
class TabList final : public QFrame {
    Q_OBJECT

public:
    explicit TabList(QWidget* parent);

    /// Drops down from a point of the screen with these tabs, the selected one marked.
    void Open(const std::vector<TabListEntry>& tabs, QPoint corner);

    /// The tabs have changed while the list is open. What is searched and marked stays as far as it is still there.
    void Refresh(const std::vector<TabListEntry>& tabs);

    /// A tab is to be closed, by its key. The list is open still, but for the last tab.
    Signal<void(const Text& key)> CloseRequested;
    /// A tab was chosen, by its key. The list is closed by then.
    Signal<void(const Text& key)> Chosen;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fill(const std::vector<TabListEntry>& tabs);
    void LayDown(QPoint corner);
    void MakeList();
    void Choose(const QModelIndex& index);
    void Close(const QModelIndex& index);
    void Mark(int row);

    QLineEdit* m_search;
    QListView* m_list;
    QStandardItemModel* m_tabs;
    QSortFilterProxyModel* m_found;
};

} // namespace tessa::qt
