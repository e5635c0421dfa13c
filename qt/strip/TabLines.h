#pragma once
#include "base/Signal.h"

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>
#include <utility>

class QAbstractItemView;

namespace tessa::qt {

/// The lines of a list of tabs: icon, title and host. The line under the pointer and the marked one also have a button
/// that closes the tab.
class TabLines final : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// The host of a tab's page, a text.
    static constexpr int kHostRole = Qt::UserRole + 2;

    /// `list` is what shows the lines and is their parent.
    explicit TabLines(QAbstractItemView* list);

    /// The button of a line was clicked.
    Signal<void(const QModelIndex&)> CloseAt;
    /// Whether the click that has just ended was one on such a button; asking forgets it.
    [[nodiscard]] bool TakeClosed() { return std::exchange(m_closed, false); }
    /// Where the button is on a line.
    [[nodiscard]] static QRect ClosePlace(const QRect& line);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    QPersistentModelIndex m_pressed; ///< the line whose button is held down
    bool m_closed = false;
};

} // namespace tessa::qt
