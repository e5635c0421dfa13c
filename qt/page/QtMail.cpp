#include "qt/page/QtMail.h"

#include "address/MailAddress.h"
#include "base/Schemes.h"
#include "qt/base/QtText.h"
#include "qt/desktop/QtDesktopPrograms.h"

namespace tessa::qt {

namespace QtMail {

bool IsMail(const QUrl& address) { return KindOfScheme(FromQt(address.scheme())) == SchemeKind::Mail; }

bool OpensElsewhere(const QUrl& address) {
    return IsMail(address) && QtDesktopPrograms::OpensElsewhere(address.scheme());
}

QUrl WithoutFiles(const QUrl& address) {
    const Text fields = MailAddress::FieldsFromPage(FromQt(address.query(QUrl::FullyEncoded)));
    QUrl mail = address;
    mail.setQuery(fields.empty() ? QString() : ToQt(fields), QUrl::StrictMode);
    return mail;
}

} // namespace QtMail

} // namespace tessa::qt
