#include "qt/dialogs/ListBoxItems.h"

#include "base/Captions.h"
#include "qt/base/Strings.h"

namespace tessa::qt {

QVariant ListBoxItems::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (role != Qt::DisplayRole || row >= m_list.ListCount()) return {};
    return ToQt(OneLine(m_list.Rows()[row]));
}

void ListBoxItems::Follow(RowChange change) {
    const int row = static_cast<int>(change.index);
    switch (change.kind) {
    case RowChange::Kind::All:
        beginResetModel();
        m_rows = static_cast<int>(m_list.ListCount());
        return endResetModel();
    case RowChange::Kind::Inserted:
        beginInsertRows({}, row, row);
        ++m_rows;
        return endInsertRows();
    case RowChange::Kind::Removed:
        beginRemoveRows({}, row, row);
        --m_rows;
        return endRemoveRows();
    case RowChange::Kind::Changed:
        return Q_EMIT dataChanged(index(row, 0), index(row, columnCount({}) - 1));
    }
}

} // namespace tessa::qt
