#pragma once
#include "commands/Dispatcher.h"
#include "commands/keys/WindowKeys.h"
#include "tabs/TabChoice.h"

namespace tessa {

/// What has the keyboard while a key goes down. A tool is one of the command bar, the menu bar or the status bar, or
/// the dividers between panes.
enum class KeyboardOn { Tool, Other };

/// Keys as the main window receives them, before its controls. Owned by the main window.
class MainKeyboard {
public:
    /// All outlive this object.
    MainKeyboard(CommandBar& actBar, const TabSet& tabs, TabChoice& choice, Dispatcher& dispatcher)
        : m_actBar(actBar), m_tabs(tabs), m_choice(choice), m_dispatcher(dispatcher) {}

    /// Runs the window's own combinations, but for those that the user has chosen for a tool. Then the command bar has
    /// the key. Used when the command bar says so. Escape on a tool leads away from there and is no command; elsewhere
    /// it ends a choice of tabs as well, and is used then.
    KeyUsed Form_KeyDown(KeyStroke key, KeyboardOn keyboard = KeyboardOn::Other);
    KeyUsed Form_KeyUp(KeyStroke key) { return m_actBar.KeyUp(key); }
    /// Something is typed while the page in front has the keyboard. Over a blank page that is meant for the address
    /// box, which then gets the keyboard.
    void Form_Type();

private:
    void Run(const WindowKey& own);

    CommandBar& m_actBar;
    const TabSet& m_tabs;
    TabChoice& m_choice;
    Dispatcher& m_dispatcher;
};

} // namespace tessa
