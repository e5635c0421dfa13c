#include "qt/dialogs/ListBoxView.h"

#include "base/Captions.h"
#include "qt/base/Strings.h"

#include <QAbstractListModel>
#include <QDropEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

namespace tessa::qt {

/// The items as Qt's views ask for them.
class ListBoxItems final : public QAbstractListModel {
public:
    ListBoxItems(ListBox& list, QObject* parent) : QAbstractListModel(parent), m_list(list) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const auto row = static_cast<std::size_t>(index.row());
        if (role != Qt::DisplayRole || row >= m_list.ListCount()) return {};
        return ToQt(OneLine(m_list.Rows()[row]));
    }
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
        // Entries are dropped between others, never onto one.
        if (!index.isValid()) return Qt::ItemIsDropEnabled;
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    }
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }

    void Follow(RowChange change) {
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
            return Q_EMIT dataChanged(index(row), index(row));
        }
    }

private:
    ListBox& m_list;
    int m_rows = 0;
};

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
    setDragDropMode(InternalMove);
    setDropIndicatorShown(true);
    m_connections += m_list.Attach([this](RowChange change) { m_model->Follow(change); });
    m_connections += m_list.FocusWanted.Connect([this] { setFocus(Qt::OtherFocusReason); });
    m_list.ListIndex = selected;
    m_connections += m_list.ListIndex.Attach([this](std::int32_t index) { Select(index); });
    m_connections += m_list.Enabled.Attach([this](bool enabled) { setEnabled(enabled); });
    connect(this, &QListView::doubleClicked, this, [this] { m_list.DblClick(); });
}

void ListBoxView::Select(std::int32_t index) {
    const QModelIndex selected = m_model->index(index);
    // What has only the keyboard's frame is not selected yet.
    if (selected == currentIndex() && (!selected.isValid() || selectionModel()->isSelected(selected))) return;
    setCurrentIndex(selected);
    if (!selected.isValid()) clearSelection();
}

void ListBoxView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    m_list.ListIndex = current.row();
}

void ListBoxView::focusInEvent(QFocusEvent* event) {
    QListView::focusInEvent(event);
    m_list.GotFocus();
}

void ListBoxView::mousePressEvent(QMouseEvent* event) {
    // Beside the entries there is nothing to select, and what is selected stays so.
    if (indexAt(event->position().toPoint()).isValid()) QListView::mousePressEvent(event);
}

void ListBoxView::dropEvent(QDropEvent* event) {
    if (event->source() != this) return event->ignore();
    event->setDropAction(Qt::MoveAction);
    event->accept();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    MoveTo(event->position().toPoint());
}

void ListBoxView::MoveTo(QPoint point) {
    const QModelIndex under = indexAt(point);
    const int from = currentIndex().row();
    int place = m_model->rowCount({});
    if (under.isValid()) place = under.row() + (point.y() > visualRect(under).center().y() ? 1 : 0);
    // Its own place becomes free.
    const int to = place > from ? place - 1 : place;
    if (from >= 0) Dragged(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
}

bool ListBoxView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    ShowToolTip(help->pos(), help->globalPos());
    return true;
}

void ListBoxView::ShowToolTip(QPoint point, QPoint globalPoint) {
    const QModelIndex under = indexAt(point);
    const auto row = static_cast<std::size_t>(under.row());
    if (!under.isValid() || row >= m_list.ListCount()) return QToolTip::hideText();
    const Text& item = m_list.Rows()[row];
    const QString title = Title ? ToQt(OneLine(Title(item))).toHtmlEscaped() : QString();
    // A title comes from a page, an address from anywhere: both are text, whatever they look like.
    QString tip = ToQt(OneLine(item)).toHtmlEscaped();
    if (!title.isEmpty()) tip = QStringLiteral("<b>%1</b><br>%2").arg(title, tip);
    QToolTip::showText(globalPoint, QStringLiteral("<p style='word-break:break-all'>%1</p>").arg(tip), viewport(),
                       visualRect(under));
}

} // namespace tessa::qt
