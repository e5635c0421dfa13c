#pragma once
#include "base/Signal.h"

#include <QObject>
#include <QPointer>
#include <functional>

class QLabel;
class QWebEngineView;
class QWidget;

/// The page that fills the screen, because it asked to after a click of its user. It covers its window, which goes to
/// full screen with it; Escape ends it, and so does leaving full screen in any other way.
class QtPageFullScreen final : public QObject {
public:
    /// Whether the window fills the screen by itself, and what has it do so; without them the page fills the window as
    /// it is. Filled in by the program.
    std::function<bool()> WindowIsFull;
    Signal<void(bool)> SetWindowFull;

    /// `who` is told to have asked for it, as in "film.example".
    void Enter(QWebEngineView& view, const QString& who);
    /// The page has left, or is to be hidden: the view goes back to where it was. Nothing for another view.
    void Leave(QWebEngineView* view);
    [[nodiscard]] bool On() const { return !m_view.isNull(); }
    [[nodiscard]] bool Has(const QWebEngineView* view) const { return view && m_view == view; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowHint(const QString& who);
    void Lay();

    QPointer<QWebEngineView> m_view;
    QPointer<QLabel> m_hint;
    QPointer<QWidget> m_home; ///< the view's parent before
    bool m_windowWasFull = false;
};
