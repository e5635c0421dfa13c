#pragma once
#include "commands/effects/CommandContext.h"

namespace tessa {

/// Maps a clicked tool to its effect, by its name or, for tools made at run time, by its source. Keeps no state between
/// clicks. Owned by the main window.
class Dispatcher {
public:
    /// The context outlives this object.
    explicit Dispatcher(CommandContext& context) : m_context(context) {}

    /// Runs the tool's command; a name that is none runs nothing. Names are told apart by case. A tool that is
    /// made from a file never runs a command of ours, only one of the product's.
    void actBar_Click(const Tool& tool);

private:
    bool RunLink(const Tool& tool);
    void RunNamed(const Tool& tool);
    void Open(const ToolSource& source, std::int32_t view);
    void OpenFavorite(TextView address, std::int32_t view);
    void Navigate(std::int32_t view, TextView address);

    CommandContext& m_context;
};

} // namespace tessa
