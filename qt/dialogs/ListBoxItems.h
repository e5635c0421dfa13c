#pragma once
#include "forms/ListBox.h"

#include <QAbstractTableModel>

namespace tessa::qt {

/// The items of a list as Qt's views ask for them: a column of texts. The list outlives it.
class ListBoxItems : public QAbstractTableModel {
public:
    ListBoxItems(ListBox& list, QObject* parent) : QAbstractTableModel(parent), m_list(list) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 1; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    /// The list has changed.
    void Follow(RowChange change);

protected:
    ListBox& m_list;

private:
    int m_rows = 0;
};

} // namespace tessa::qt
