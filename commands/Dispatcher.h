#pragma once
#include "common/CommandBar.h"
#include "tabs/TabSet.h"

#include <functional>

/// What the commands need of the layers above; filled in by the main window.
struct CommandHost {
    std::function<void()> ShowSettings;
    std::function<void()> Exit;
};

/// Maps the name of a clicked tool to its effect. Owned by the main window.
class Dispatcher {
public:
    /// `tabs` outlives this object.
    explicit Dispatcher(TabSet& tabs) : m_tabs(tabs) {}

    /// Runs the command of that name; a name that is none runs nothing.
    void actBar_Click(const Tool& tool);
    /// Enter in the address box: the current view goes to its text as typed.
    void AddressEntered();

    CommandHost Host;

private:
    TabSet& m_tabs;
};
