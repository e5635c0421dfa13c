#pragma once
#include <QString>
#include <QUrl>

/// Addresses that begin a mail, on their way to the desktop's mail program.
namespace QtMail {

[[nodiscard]] bool IsMail(const QString& text);
/// The address as mail programs read it. What the program's own mails say arrives whole, whatever it contains; in any
/// other address only what no mail address may contain is encoded.
[[nodiscard]] QUrl AddressOf(const QString& text);

/// The address as a page may have it: mail programs attach files of this computer when it says so.
[[nodiscard]] QUrl WithoutFiles(const QUrl& address);

} // namespace QtMail
