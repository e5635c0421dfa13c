#pragma once
#include "base/Signal.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <vector>

class QLabel;
class QMainWindow;
class QWidget;

namespace tessa::qt {

/// What full screen asks for.
class FullScreenFacts {
public:
    virtual ~FullScreenFacts() = default;
    /// Whether a page fills the window: nothing calls the bars then.
    [[nodiscard]] virtual bool PageFills() const = 0;
    /// The combination that leaves full screen, as menus spell it; empty for none.
    [[nodiscard]] virtual QString Keys() const = 0;
};

/// Full screen for a window. Hides its menu bar and toolbars while it lasts and says for a moment how to leave. The
/// bars come back while they have the focus or the pointer, or a menu is open. A pointer that rests at an edge where
/// bars were calls them.
class FullScreen final : public QObject {
public:
    /// `hintArea` is where the hint appears, inside the window. Both outlive it.
    FullScreen(QMainWindow& window, QWidget& hintArea);

    [[nodiscard]] bool On() const { return m_on; }
    void Set(bool on);
    /// Shows the bars that full screen has taken away; somebody is about to give one of them the keyboard.
    void Reveal();
    /// From now on these count, which outlive it. Without them no page fills the window, and no combination is told.
    void Heed(const FullScreenFacts& facts) { m_facts = &facts; }

    /// The window entered or left full screen, by `Set` or by the desktop.
    Signal<void(bool on)> Changed;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Follow(bool on);
    void HideBars();
    void ShowBars();
    void ShowHint();
    void PlaceHint();
    void WatchPointer();
    void Look();
    [[nodiscard]] bool AtEdge(QPoint at) const;
    [[nodiscard]] bool BarsInUse() const;

    QMainWindow& m_window;
    QWidget& m_hintArea;
    const FullScreenFacts* m_facts = nullptr;
    std::vector<QPointer<QWidget>> m_hidden; ///< bars that were on the screen before
    QPointer<QLabel> m_hint;
    QTimer m_look;           ///< whether the pointer still rests at the edge, or the bars are still used
    bool m_revealed = false; ///< the hidden bars are on the screen for a while
    bool m_on = false;
};

} // namespace tessa::qt
