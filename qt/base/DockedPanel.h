#pragma once
#include "base/Signal.h"

#include <QDockWidget>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>

class QMainWindow;
class QWidget;

namespace tessa::qt {

/// A panel at a side of the window, the right one unless told otherwise. Its user closes it by its button and by
/// Escape. Nothing of it is there while it is closed.
class DockedPanel final : public QObject {
    Q_OBJECT

public:
    /// How wide a panel is as long as its user has not dragged its border.
    using UsualWidth = std::function<int()>;

    /// The window outlives it. `name` is the panel's among those of the window. With a usual width, which may be empty,
    /// the panel keeps its width when the window gets another one.
    DockedPanel(QMainWindow& window, QString name, UsualWidth usualWidth);
    ~DockedPanel() override;

    /// Takes over `contents`. Nothing happens while it is open.
    void Open(const QString& caption, QWidget& contents, Qt::DockWidgetArea side = Qt::RightDockWidgetArea);
    void Close();
    /// It may be at the left and at the right only, and is no window of its own. For before it opens.
    void OnSidesAlone() { m_onSidesAlone = true; }
    void MoveTo(Qt::DockWidgetArea side);
    /// Gives it that width in pixels, as far as the window allows.
    void SetWidth(int width);
    /// The width that its user has given it; 0 for none.
    void SetUserWidth(int width) { m_userWidth = width; }
    /// Null while it is closed.
    [[nodiscard]] QDockWidget* Get() const { return m_panel; }

    /// Its user wants it closed. It stays until it is.
    Signal<void()> Dismissed;
    /// It was closed and had the keyboard.
    Signal<void()> KeyboardFree;
    /// Its user has dragged its border.
    Signal<void(int width)> WidthChosen;
    /// Its user has dragged it to that side.
    Signal<void(Qt::DockWidgetArea side)> Moved;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void KeepWidth();
    void Fit();
    void OnWindow(const QEvent& event);

    QMainWindow& m_window;
    QString m_name;
    UsualWidth m_usualWidth;
    QPointer<QDockWidget> m_panel;
    bool m_onSidesAlone = false;
    int m_userWidth = 0;
    bool m_drags = false; ///< a border between panels is being dragged
};

} // namespace tessa::qt
