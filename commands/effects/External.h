#pragma once
#include "platform/SettingsStorage.h"
#include "platform/Shell.h"

namespace tessa {

/// Mail, news and what else lies outside: starts the user's own programs and writes the addresses that begin a mail.
namespace External {

/// Starts the user's mail or news program. That is the one of the settings or, until one was ever set, the desktop's.
/// Does nothing when there is none, and says nothing when it does not start.
void LaunchMailClient(SettingsStorageFactory& settings, Shell& shell);
void LaunchNewsClient(SettingsStorageFactory& settings, Shell& shell);

/// What a bug report says about the system.
[[nodiscard]] Text EnvironmentText(SettingsStorageFactory& settings, const Shell& shell);

/// What the mail commands need to know.
struct MailContents {
    TextView title;   ///< of the current page
    TextView address; ///< of the current page
    TextView environment;
};
/// The address that begins a mail for the command of that name; nothing of the contents is encoded. Empty for any
/// other command.
[[nodiscard]] Text MailAddress(TextView tool, const MailContents& contents);

/// The text with each %NAME% replaced by that variable's value; names that stand for nothing stay as they are.
/// Nothing when the result and its end mark do not fit into `size` characters.
[[nodiscard]] std::optional<Text> ExpandEnvironmentStrings(TextView text, std::size_t size, const Shell& shell);
/// The words of a command line: blanks part them, quotes of both kinds and backslashes hold them together.
[[nodiscard]] std::vector<Text> WordsOf(TextView commandLine);

} // namespace External

} // namespace tessa
