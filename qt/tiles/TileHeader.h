#pragma once
#include "base/Signal.h"

#include <QAbstractButton>

namespace tessa::qt {

/// What stands above the page of a pane: icon, title, a button that closes. A click selects the pane, a double click
/// gives it all the room. It can be dragged to another pane.
class TileHeader final : public QAbstractButton {
    Q_OBJECT

public:
    explicit TileHeader(QWidget* parent);

    /// Shows that title and whether the pane has the focus. A title comes from a page, and is text.
    void ShowFace(const QIcon& icon, const QString& title, bool focused);
    /// How high headers are in the font of that widget.
    [[nodiscard]] static int HeightIn(const QWidget& widget);

    /// Somebody wants the pane.
    Signal<void()> Selected;
    Signal<void()> DoubleClicked;
    Signal<void()> CloseRequested;
    /// The right button went down.
    Signal<void()> MenuRequested;
    /// It is dragged over that point of the screen, or let go there.
    Signal<void(QPoint)> Dragged;
    Signal<void(QPoint)> Dropped;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QAbstractButton* m_close;
    QIcon m_icon;
    QPoint m_pressed;
    bool m_focused = false;
    bool m_dragging = false;
};

} // namespace tessa::qt
