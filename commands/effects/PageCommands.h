#pragma once
#include "commands/effects/CommandContext.h"

namespace tessa {

/// Commands on the current page.
namespace PageCommands {

void GoBack(CommandContext& context, BrowserView& view);
void GoForward(CommandContext& context, BrowserView& view);
void Home(CommandContext& context, BrowserView& view);
void Search(CommandContext& context, BrowserView& view);
void Stop(CommandContext& context, BrowserView& view);
void Refresh(CommandContext& context, BrowserView& view);
void Source(CommandContext& context, BrowserView& view);
void Find(CommandContext& context, BrowserView& view);
void InternetOptions(CommandContext& context, BrowserView& view);
void SelectAll(CommandContext& context, BrowserView& view);
/// Runs one of the view's own commands.
template<BrowserCommand command>
void Exec(CommandContext&, BrowserView& view) {
    ResumeNext(view.ExecWB(command));
}
/// Asks for a file and loads it.
void Open(CommandContext& context);
void TextSize(CommandContext& context, const Tool& tool);
void MediumTextSize(CommandContext& context);
void LargerText(CommandContext& context);
void SmallerText(CommandContext& context);
void ToggleLoadOption(CommandContext& context, const Tool& tool);
/// Loads the address that begins a mail.
void Mail(CommandContext& context, const Tool& tool);
/// Start the user's own programs.
void LaunchMailClient(CommandContext& context);
void LaunchNewsClient(CommandContext& context);

} // namespace PageCommands

} // namespace tessa
