#pragma once
#include "base/Signal.h"

#include <QDockWidget>
#include <QObject>
#include <QPointer>
#include <QString>

class QMainWindow;
class QWidget;

namespace tessa::qt {

/// A panel at the right of the window, which its user closes by its button and by Escape. Nothing of it is there while
/// it is closed.
class DockedPanel final : public QObject {
    Q_OBJECT

public:
    /// The window outlives it. `name` is the panel's among those of the window.
    DockedPanel(QMainWindow& window, QString name);
    ~DockedPanel() override;

    /// Takes over `contents`. Nothing happens while it is open.
    void Open(const QString& caption, QWidget& contents);
    void Close();
    /// Gives it that width in pixels, as far as the window allows.
    void SetWidth(int width);
    /// Null while it is closed.
    [[nodiscard]] QDockWidget* Get() const { return m_panel; }

    /// Its user wants it closed. It stays until it is.
    Signal<void()> Dismissed;
    /// It was closed and had the keyboard.
    Signal<void()> KeyboardFree;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QMainWindow& m_window;
    QString m_name;
    QPointer<QDockWidget> m_panel;
};

} // namespace tessa::qt
