#pragma once
#include <QObject>
#include <QPointer>

class QLabel;
class QWebEngineView;
class QWidget;

namespace tessa::qt {

/// The page that fills the screen, because it asked to after a click of its user. It covers its window, which goes to
/// full screen with it. Escape ends it, and so does leaving full screen in any other way.
class PageFullScreen final : public QObject {
public:
    /// The window that the page is in.
    class Window {
    public:
        virtual ~Window() = default;
        /// Whether it fills the screen.
        [[nodiscard]] virtual bool WindowIsFull() const = 0;
        virtual void SetWindowFull(bool full) = 0;
    };

    /// The window outlives it.
    explicit PageFullScreen(Window& window) : m_window(window) {}

    /// `who` is told to have asked for it, as in "film.example".
    void Enter(QWebEngineView& view, const QString& who);
    /// The page has left, or is to be hidden: the view goes back to where it was. Nothing for another view.
    void Leave(QWebEngineView* view);
    [[nodiscard]] bool On() const { return !m_view.isNull(); }
    [[nodiscard]] bool Has(const QWebEngineView* view) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowHint(const QString& who);
    void Lay();

    Window& m_window;
    QPointer<QWebEngineView> m_view;
    QPointer<QLabel> m_hint;
    QPointer<QWidget> m_home; ///< the view's parent before
    bool m_windowWasFull = false;
};

} // namespace tessa::qt
