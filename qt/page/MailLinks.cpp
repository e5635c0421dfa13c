#include "qt/page/MailLinks.h"

#include "address/MailAddress.h"
#include "base/Schemes.h"
#include "qt/base/Strings.h"
#include "qt/desktop/DesktopPrograms.h"

namespace tessa::qt {

namespace MailLinks {

bool IsMail(const QUrl& address) { return KindOfScheme(FromQt(address.scheme())) == SchemeKind::Mail; }

bool OpensElsewhere(const QUrl& address) {
    return IsMail(address) && DesktopPrograms::OpensElsewhere(address.scheme());
}

QUrl WithoutFiles(const QUrl& address) {
    const Text fields = MailAddress::FieldsFromPage(FromQt(address.query(QUrl::FullyEncoded)));
    QUrl mail = address;
    mail.setQuery(fields.empty() ? QString() : ToQt(fields), QUrl::StrictMode);
    return mail;
}

} // namespace MailLinks

} // namespace tessa::qt
