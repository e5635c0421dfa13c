#pragma once
#include "common/CommandBar.h"

#include <QObject>
#include <QPointer>
#include <unordered_map>

class QMenu;
class QtToolActions;
class QWidget;

/// The drop-down and pop-up menus of a command bar. A menu is made when a tool that opens it is shown, and filled each
/// time it opens.
class QtBandMenus final : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    QtBandMenus(CommandBar& bar, QtToolActions& actions, QWidget& window)
        : m_bar(bar), m_actions(actions), m_window(window) {}
    ~QtBandMenus() override;

    /// The menu that shows a band, which may come into being later.
    QMenu* For(const Text& band);
    /// Shows a band at the pointer.
    void Popup(Band& band);

private:
    void Fill(QMenu& menu, const Text& band);

    CommandBar& m_bar;
    QtToolActions& m_actions;
    QWidget& m_window;
    std::unordered_map<Text, QPointer<QMenu>> m_menus; ///< by the band's name
};
