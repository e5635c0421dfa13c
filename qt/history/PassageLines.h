#pragma once
#include "history/Snippets.h"

#include <QStyledItemDelegate>
#include <QTextLayout>

namespace tessa::qt {

/// Paints lines of a list whose marked parts are those that were searched for: pages in bold, passages below them on
/// as many lines as they need.
class PassageLines final : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// What an item holds beside its text: where it is marked, as pairs of a place and a length, and whether it is a
    /// page.
    static constexpr int kMarks = Qt::UserRole + 1, kIsPage = Qt::UserRole + 2;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// The text of a snippet, and the places of its marks.
    [[nodiscard]] static QString TextOf(const Snippet& snippet);
    [[nodiscard]] static QVariantList MarksOf(const Snippet& snippet);

private:
    static qreal Lay(QTextLayout& layout, const QStyleOptionViewItem& option, const QModelIndex& index, int width);
};

} // namespace tessa::qt
