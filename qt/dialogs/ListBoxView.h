#pragma once
#include "base/Signal.h"
#include "forms/ListBox.h"

#include <QListView>
#include <functional>

namespace tessa::qt {

class ListBoxItems;

/// Shows a `ListBox`, which outlives it. However long the list, only what is seen is laid out. The user can drag an
/// entry to another place.
class ListBoxView final : public QListView {
    Q_OBJECT

public:
    /// `name` is the control's name, `accessibleName` what the user would call the list.
    ListBoxView(ListBox& list, const QString& name, const QString& accessibleName);

    /// An entry was dragged: where it stood and where it shall stand, from 0.
    Signal<void(std::size_t from, std::size_t to)> Dragged;
    /// What an entry's tool tip says beside its text; empty for nothing more.
    std::function<Text(TextView item)> Title;

    /// What dropping the selected entry at a point of the viewport does: it goes between the two entries there.
    void MoveTo(QPoint point);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void Select(std::int32_t index);
    void ShowToolTip(QPoint point, QPoint globalPoint);

    ListBox& m_list;
    ListBoxItems* m_model;
    Connections m_connections;
};

} // namespace tessa::qt
