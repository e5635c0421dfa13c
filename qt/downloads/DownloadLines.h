#pragma once
#include "base/Signal.h"
#include "downloads/frmDownloads.h"

#include <QListWidget>
#include <QStyledItemDelegate>

namespace tessa::qt {

/// Draws a download below each other: its name, how far it is as a bar, and the same in words. Of one that is done
/// these say when that was, and where it lies.
class DownloadDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;
    static constexpr int kPercentRole = Qt::UserRole;
    static constexpr int kNameRole = Qt::UserRole + 1;
    static constexpr int kStandingRole = Qt::UserRole + 2;
    static constexpr int kPlaceRole = Qt::UserRole + 3;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// The lines of words below the name, in so many pixels of width. Only a folder may be wider than they are.
    [[nodiscard]] static QStringList WordsOf(const QModelIndex& index, const QFontMetrics& metrics, int room);
};

/// The list of the panel of downloads, which outlives it.
class DownloadLines final : public QListWidget {
    Q_OBJECT

public:
    DownloadLines(frmDownloads& form, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    frmDownloads& m_form;
    Connections m_connections;
};

} // namespace tessa::qt
