#pragma once
#include "base/Signal.h"
#include "forms/ListModel.h"

#include <QListWidget>
#include <QSignalBlocker>
#include <QTreeWidget>

namespace tessa::qt {

/// A cell with its text as tool tip. What a page calls itself is text. As a tool tip Qt would read it as HTML if it
/// looks like it.
void ShowCell(QTreeWidgetItem& item, int column, const QString& text);

/// What a widget of items is for a list. Both kinds have the same verbs, under other names.
struct TreeItems {
    QTreeWidget& widget;
    [[nodiscard]] int Count() const { return widget.topLevelItemCount(); }
    [[nodiscard]] QTreeWidgetItem& At(int row) const { return *widget.topLevelItem(row); }
    [[nodiscard]] int Current() const { return widget.indexOfTopLevelItem(widget.currentItem()); }
    void SetCurrent(int row) const { widget.setCurrentItem(row < 0 ? nullptr : widget.topLevelItem(row)); }
    void Insert(int row) const { widget.insertTopLevelItem(row, new QTreeWidgetItem); }
    void Remove(int row) const { delete widget.takeTopLevelItem(row); }
};
struct ListItems {
    QListWidget& widget;
    [[nodiscard]] int Count() const { return widget.count(); }
    [[nodiscard]] QListWidgetItem& At(int row) const { return *widget.item(row); }
    [[nodiscard]] int Current() const { return widget.currentRow(); }
    void SetCurrent(int row) const { widget.setCurrentRow(row); }
    void Insert(int row) const { widget.insertItem(row, new QListWidgetItem); }
    void Remove(int row) const { delete widget.takeItem(row); }
};
inline TreeItems ItemsOf(QTreeWidget& widget) { return {widget}; }
inline ListItems ItemsOf(QListWidget& widget) { return {widget}; }

/// Has the items follow one change of the list. Items stay where they are while only their rows change, and with them
/// the keyboard's place. The widget says nothing of it.
template<typename Items, typename Row, auto Key, typename Fill>
void FollowRows(const Items& items, const ListModel<Row, Key>& list, RowChange change, Fill fill) {
    const QSignalBlocker quiet(&items.widget);
    const int row = static_cast<int>(change.index);
    switch (change.kind) {
    case RowChange::Kind::All:
        while (items.Count() > 0) items.Remove(items.Count() - 1);
        for (const Row& each : list.Rows()) {
            items.Insert(items.Count());
            fill(items.At(items.Count() - 1), each);
        }
        return;
    case RowChange::Kind::Inserted:
        items.Insert(row);
        [[fallthrough]];
    case RowChange::Kind::Changed:
        return fill(items.At(row), list.Rows()[change.index]);
    case RowChange::Kind::Removed:
        return items.Remove(row);
    }
}

/// Shows a list in a widget and ties what is selected in both, until the connections go. `fill(item, row)` shows a row.
/// The list outlives the widget.
template<typename Widget, typename Row, auto Key, typename Fill>
void BindRows(ListModel<Row, Key>& list, Widget& widget, Connections& connections, Fill fill) {
    const auto items = ItemsOf(widget);
    connections += list.Attach([items, &list, fill](RowChange change) { FollowRows(items, list, change, fill); });
    connections += list.ListIndex.Attach([items](std::int32_t index) {
        const QSignalBlocker quiet(&items.widget);
        if (items.Current() != index) items.SetCurrent(index);
    });
    QObject::connect(&widget, &Widget::currentItemChanged, &widget,
                     [items, &list] { list.ListIndex = items.Current(); });
}

} // namespace tessa::qt
