#pragma once
#include "base/Text.h"

namespace tessa {

/// Addresses that begin a mail, on their way to the desktop's mail program.
namespace MailAddress {

[[nodiscard]] bool IsMail(TextView address);

/// The address as mail programs read it. What the program's own mails say arrives whole, whatever it contains. In any
/// other address, only what a mail address may not contain is encoded.
[[nodiscard]] Text Encoded(TextView address);

/// Of the encoded fields behind an address's "?", those that a page may fill in. Mail programs attach files of this
/// computer when a field says so. Empty when none is left.
[[nodiscard]] Text FieldsFromPage(TextView fields);

} // namespace MailAddress

} // namespace tessa
