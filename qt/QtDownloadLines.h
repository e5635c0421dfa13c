#pragma once
#include "pages/frmDownloads.h"

#include <QListWidget>
#include <QStyledItemDelegate>

/// Draws a download as three lines: its name, how far it is as a bar, and the same in words. Of one that is done the
/// last says when that was, and where it lies.
class QtDownloadDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;
    static constexpr int kPercentRole = Qt::UserRole;
    static constexpr int kIdRole = Qt::UserRole + 1;
    static constexpr int kNameRole = Qt::UserRole + 2;
    static constexpr int kStandingRole = Qt::UserRole + 3;
    static constexpr int kPlaceRole = Qt::UserRole + 4;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

/// The list of the panel of downloads, which outlives it.
class QtDownloadLines final : public QListWidget {
    Q_OBJECT

public:
    QtDownloadLines(frmDownloads& form, QWidget* parent);
    ~QtDownloadLines() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ShowLines(const std::vector<DownloadLine>& lines);
    void ShowSelected();

    frmDownloads& m_form;
};
