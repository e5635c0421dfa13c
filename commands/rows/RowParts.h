#pragma once
#include "commands/Command.h"

namespace tessa::CommandRows {

// What the rows are made of, besides effects.
using CommandTraits::ByFamily, CommandTraits::CountsFrom, CommandTraits::Key, CommandTraits::KeyOfOthers,
    CommandTraits::OnBar, CommandTraits::OnlyOn, CommandTraits::Opens;

inline constexpr std::int32_t kShift = Keys::kShift, kCtrl = Keys::kCtrl, kAlt = Keys::kAlt;

template<auto operation>
void OfWindow(CommandContext& context) {
    (context.window->*operation)();
}
template<auto operation>
void OfTools(CommandContext& context) {
    (context.tools.*operation)();
}

/// Runs an operation of the main window, or of what its view has besides the pages.
template<auto operation>
constexpr WindowEffect kRuns = OfWindow<operation>;
template<auto operation>
constexpr WindowEffect kRunsTool = OfTools<operation>;

} // namespace tessa::CommandRows
