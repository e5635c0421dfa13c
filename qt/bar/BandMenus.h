#pragma once
#include "bar/CommandBar.h"
#include "bar/EntryGestures.h"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QProxyStyle>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

class QAction;
class QMenu;
class QWidget;

namespace tessa::qt {

class ToolActions;

/// The drop-down and pop-up menus of a command bar. A menu is made when a tool that opens it is shown, and filled each
/// time it opens.
class BandMenus final : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    BandMenus(CommandBar& bar, ToolActions& actions, QWidget& window, EntryGestures& gestures)
        : m_bar(bar), m_actions(actions), m_window(window), m_gestures(gestures) {}
    ~BandMenus() override;

    /// The menu that shows a band, which may come into being later.
    QMenu* For(const Text& band);
    /// Shows a band at the pointer; over an open menu at the entry that `EntryPopup` was called for.
    void Popup(Band& band);
    /// Where on the screen a menu pops up. That may not be the pointer, because a key may have asked for it.
    void PlaceNext(std::optional<QPoint> at) { m_next = at; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The desktop's style, in which a menu that is higher than the screen scrolls. Further columns would be beside the
    /// screen.
    class Scrolling final : public QProxyStyle {
    public:
        int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                      QStyleHintReturn* data) const override;
    };

    void Fill(QMenu& menu, const Text& band);
    /// What a menu lists for a band; nothing where a separator stands.
    std::vector<QAction*> ActionsOf(const Band& band);
    [[nodiscard]] bool IsBehindEntryPopup(const QMenu& menu) const;
    void HideAllBut(const QMenu* hidden);
    bool OnMouse(const QMenu& menu, const QEvent& event);
    bool PopupFor(const QAction* action, QPoint at);
    bool MiddleClick(const QAction* action);
    bool DeleteKey(const QAction* action);
    /// Closes all menus and then runs it; false when there is nothing to run.
    bool RunBehindMenus(std::function<void()> effect);

    CommandBar& m_bar;
    ToolActions& m_actions;
    QWidget& m_window;
    EntryGestures& m_gestures;
    Scrolling m_style;
    std::unordered_map<Text, QPointer<QMenu>> m_menus; ///< by the band's name
    QPointer<QMenu> m_entryPopup;                      ///< the menu that was opened over others
    QPoint m_at;                                       ///< where on the screen it opens
    std::optional<QPoint> m_next;
};

} // namespace tessa::qt
