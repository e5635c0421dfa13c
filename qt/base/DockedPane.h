#pragma once
#include "base/Signal.h"

#include <QDockWidget>
#include <QObject>
#include <QPointer>
#include <QString>

class QMainWindow;
class QWidget;

namespace tessa::qt {

/// A pane at the right of the window, which its user closes by its button and by Escape. Nothing of it is there while
/// it is closed.
class DockedPane final : public QObject {
    Q_OBJECT

public:
    /// The window outlives it. `name` is the pane's among those of the window.
    DockedPane(QMainWindow& window, QString name);
    ~DockedPane() override;

    /// Takes over `contents`. Nothing happens while it is open.
    void Open(const QString& caption, QWidget& contents);
    void Close();
    /// Gives it that width in pixels, as far as the window allows.
    void SetWidth(int width);
    /// Null while it is closed.
    [[nodiscard]] QDockWidget* Get() const { return m_pane; }

    /// Its user wants it closed. It stays until it is.
    Signal<void()> Dismissed;
    /// It was closed and had the keyboard.
    Signal<void()> KeyboardFree;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QMainWindow& m_window;
    QString m_name;
    QPointer<QDockWidget> m_pane;
};

} // namespace tessa::qt
