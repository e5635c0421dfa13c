#pragma once
#include <QWidget>

namespace tessa::qt {

/// Shows where what is dragged would come to lie. The pointer goes through it.
class TileDropZone final : public QWidget {
public:
    explicit TileDropZone(QWidget* parent);

    /// Shows that place of its parent; hides when it is empty.
    void ShowAt(const QRect& place);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tessa::qt
