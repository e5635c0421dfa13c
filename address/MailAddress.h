#pragma once
#include "base/Text.h"

/// Addresses that begin a mail, on their way to the desktop's mail program.
namespace MailAddress {

[[nodiscard]] bool IsMail(TextView address);

/// The address as mail programs read it. What the program's own mails say arrives whole, whatever it contains; in any
/// other address only what no mail address may contain is encoded.
[[nodiscard]] Text Encoded(TextView address);

/// Of the fields behind an address's "?", encoded, those that a page may fill in: mail programs attach files of this
/// computer when a field says so. Empty when none is left.
[[nodiscard]] Text FieldsFromPage(TextView fields);

} // namespace MailAddress
