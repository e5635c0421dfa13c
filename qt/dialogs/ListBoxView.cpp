#include "qt/dialogs/ListBoxView.h"

#include "qt/dialogs/ListBoxItems.h"

#include <QMouseEvent>

namespace tessa::qt {

ListBoxView::ListBoxView(ListBox& list, const QString& name, const QString& accessibleName)
    : m_list(list), m_model(new ListBoxItems(list, this)) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    // A view takes its model with nothing selected, and says so.
    const std::int32_t selected = list.ListIndex();
    setModel(m_model);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_connections += m_list.Attach([this](RowChange change) { m_model->Follow(change); });
    m_list.ListIndex = selected;
    m_connections += m_list.ListIndex.Attach([this](std::int32_t index) { Select(index); });
    m_connections += m_list.Enabled.Attach([this](bool enabled) { setEnabled(enabled); });
}

void ListBoxView::Select(std::int32_t index) {
    const QModelIndex selected = m_model->index(index, 0);
    // What has only the keyboard's frame is not selected yet.
    if (selected == currentIndex() && (!selected.isValid() || selectionModel()->isSelected(selected))) return;
    setCurrentIndex(selected);
    if (!selected.isValid()) clearSelection();
}

void ListBoxView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    m_list.ListIndex = current.row();
}

void ListBoxView::mousePressEvent(QMouseEvent* event) {
    // Beside the entries there is nothing to select, and what is selected stays so.
    if (indexAt(event->position().toPoint()).isValid()) QListView::mousePressEvent(event);
}

} // namespace tessa::qt
