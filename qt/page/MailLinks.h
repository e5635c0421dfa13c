#pragma once
#include <QUrl>

namespace tessa::qt {

/// Addresses that begin a mail, and the desktop's mail program.
namespace MailLinks {

[[nodiscard]] bool IsMail(const QUrl& address);

/// Whether it begins a mail with another program than this one. Where the desktop has none it would come back.
[[nodiscard]] bool OpensElsewhere(const QUrl& address);

/// The address as a page may have it: mail programs attach files of this computer when it says so.
[[nodiscard]] QUrl WithoutFiles(const QUrl& address);

} // namespace MailLinks

} // namespace tessa::qt
