#pragma once
#include "base/Signal.h"
#include "forms/ListBox.h"

#include <QListView>

namespace tessa::qt {

class ListBoxItems;

/// Shows a `ListBox`, which outlives it. However long the list, only what is seen is laid out.
class ListBoxView final : public QListView {
public:
    /// `name` is the control's name, `accessibleName` what the user would call the list.
    ListBoxView(ListBox& list, const QString& name, const QString& accessibleName);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void Select(std::int32_t index);

    ListBox& m_list;
    ListBoxItems* m_model;
    Connections m_connections;
};

} // namespace tessa::qt
