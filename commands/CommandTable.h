#pragma once
#include "bar/ToolName.h"
#include "commands/CommandContext.h"

#include <span>
#include <variant>

using WindowEffect = void (*)(CommandContext&);
using ToolEffect = void (*)(CommandContext&, const Tool&);
/// Does nothing without a current view.
using ViewEffect = void (*)(CommandContext&, BrowserView&);

/// A tool's name and what a click on it does.
struct Command {
    ToolName tool;
    std::variant<WindowEffect, ToolEffect, ViewEffect> effect;
    /// Whether the main window has what the command needs; nothing for a command that needs nothing.
    bool (*available)(const CommandHost&) = nullptr;
};

/// The commands in the order in which their names are tested.
[[nodiscard]] std::span<const Command> CommandTable();
