#pragma once
#include <QObject>
#include <QPointer>

class QDockWidget;
class QMainWindow;
class QWebEnginePage;

namespace tessa::qt {

/// The engine's developer tools for one page at a time, in a pane of the window. They cost nothing while closed.
class DevTools final : public QObject {
public:
    /// The window outlives it.
    explicit DevTools(QMainWindow& window) : m_window(window) {}

    /// Opens the tools for that page, moves them there from another page, or closes them when they show it already.
    /// Does nothing for no page.
    void Toggle(QWebEnginePage* page);
    /// Opens the tools for that page, wherever they are now.
    void Show(QWebEnginePage& page);
    /// Closes the tools; before the engine ends.
    void Close();
    /// The page that the tools show; nothing while they are closed.
    [[nodiscard]] QWebEnginePage* Inspected() const;

private:
    void Open(QWebEnginePage& page);

    QMainWindow& m_window;
    QPointer<QDockWidget> m_pane;
    QPointer<QWebEnginePage> m_inspected;
};

} // namespace tessa::qt
