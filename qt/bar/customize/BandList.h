#pragma once
#include "base/Signal.h"
#include "commands/Customization.h"

#include <QBasicTimer>
#include <QListWidget>

namespace tessa::qt {

/// The entries of a band as a list. They are dragged inside it, out of it, and into it.
class BandList final : public QListWidget {
    Q_OBJECT

public:
    /// The customisation outlives it.
    explicit BandList(Customization& custom, QWidget* parent = nullptr);

    void ShowBand(const Band& band);
    /// The band that is shown; nothing when it is no more.
    [[nodiscard]] Band* Shown() const;
    /// Shows the band as it is now; the same place stays the current one.
    void Refresh();
    /// All entries without scrolling, as far as the screen has room.
    [[nodiscard]] QSize sizeHint() const override;

    /// The user clicks an entry that opens a menu, or stays above it with a dragged tool.
    Signal<void(Band& menu, const QRect& entry)> MenuWanted;

protected:
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void ShowPlace(int row);
    [[nodiscard]] int PlaceAt(const QPoint& point) const;
    void WantMenu(int row);
    void HoverOver(int row);

    Customization& m_custom;
    Text m_band;
    int m_place = -1; ///< where a dragged tool would go; none below 0
    int m_hovered = -1;
    QBasicTimer m_hover;
};

} // namespace tessa::qt
