#pragma once
#include "bar/CommandBar.h"
#include "base/Signal.h"

#include <QMainWindow>
#include <QObject>
#include <QPointer>
#include <functional>
#include <optional>
#include <vector>

class QFocusEvent;
class QToolBar;

namespace tessa::qt {

class ToolBars;

/// Moves the focus round the window's parts: menu bar, toolbars, docked panels, tab strip, page bars, page, status bar.
/// Inside a toolbar the arrow keys go from tool to tool. Enter presses, Down opens a menu, and Escape goes back to the
/// page. Floating toolbars are windows of their own and no part of this one.
class FocusRing final : public QObject {
    Q_OBJECT

public:
    /// What the keyboard goes to beside the bars; its owner knows. Nothing is where it is not there.
    class Neighbours {
    public:
        /// A part that comes right after the page, and what gives it the keyboard: what the page in front asks.
        struct Asked {
            QWidget* Bar;
            std::function<void()> Enter;
        };
        virtual ~Neighbours() = default;
        [[nodiscard]] virtual QWidget* Strip() = 0;
        /// The bars beside the page.
        [[nodiscard]] virtual std::vector<QWidget*> PageBars() = 0;
        /// Nothing while no question is shown.
        [[nodiscard]] virtual std::optional<Asked> Question() = 0;
        [[nodiscard]] virtual QWidget* StatusBar() = 0;

        /// Those of a window that has none.
        [[nodiscard]] static Neighbours& None();
    };

    /// All outlive it.
    FocusRing(QMainWindow& window, const ToolBars& toolBars, Neighbours& neighbours);
    ~FocusRing() override;

    /// Goes to the next or the previous part, or to the menu bar. The menu bar's key pressed again leaves it.
    void Step(BarStep step);

    /// Whether the menu bar, the status bar or a toolbar button has the focus. Escape leads away from there.
    [[nodiscard]] bool HasKeyboard() const;

    /// The page is to have the keyboard.
    Signal<void()> FocusPage;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// A part of the window, and what gives it the keyboard.
    struct Part {
        const QWidget* area; ///< nothing for the page, which is where the keyboard is when it is nowhere else
        std::function<void()> enter;
    };
    [[nodiscard]] std::vector<Part> Parts();
    void AddWidgets(std::vector<Part>& parts) const;
    void EnterMenuBar();
    void LeaveMenuBar();
    void ForgetMenu(const QFocusEvent& event);
    void ToPage() const;
    [[nodiscard]] bool Press(int key, QWidget& focused, const QToolBar& bar) const;

    QMainWindow& m_window;
    const ToolBars& m_toolBars;
    Neighbours& m_neighbours;
    QPointer<QWidget> m_before; ///< had the keyboard before the menu bar
};

} // namespace tessa::qt
