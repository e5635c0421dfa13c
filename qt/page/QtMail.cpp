#include "qt/page/QtMail.h"

#include "address/Endpoints.h"
#include "qt/base/QtText.h"

#include <QRegularExpression>
#include <algorithm>
#include <optional>

namespace {

constexpr QStringView kLinkStart = u"mailto:?subject=";
constexpr QStringView kBodyStart = u"&body=";

// One line of a mail's head must not become two.
QByteArray EncodedLine(QString text) {
    std::ranges::replace_if(
        text, [](QChar each) { return each.category() == QChar::Other_Control; }, QChar(u' '));
    return QUrl::toPercentEncoding(text);
}

// A link sent by mail: a title and, in brackets, the address, which is the body once more. Title and address may hold
// what parts the two as well.
std::optional<QUrl> LinkMail(const QString& text) {
    if (!text.startsWith(kLinkStart)) return std::nullopt;
    const QString rest = text.mid(kLinkStart.size());
    for (qsizetype at = rest.indexOf(kBodyStart); at >= 0; at = rest.indexOf(kBodyStart, at + 1)) {
        const QString subject = rest.left(at), body = rest.mid(at + kBodyStart.size());
        if (!subject.endsWith(QStringLiteral(" (%1)").arg(body))) continue;
        return QUrl::fromEncoded(kLinkStart.toLatin1() + EncodedLine(subject) + kBodyStart.toLatin1() +
                                 QUrl::toPercentEncoding(body));
    }
    return std::nullopt;
}

std::optional<QUrl> MakersMail(const QString& text) {
    const QString start = QStringLiteral("mailto:%1?subject=").arg(ToQt(Endpoints::kSupportMailbox));
    if (!text.startsWith(start)) return std::nullopt;
    return QUrl::fromEncoded(start.toLatin1() + EncodedLine(text.mid(start.size())));
}

} // namespace

namespace QtMail {

bool IsMail(const QString& text) { return text.startsWith(u"mailto:", Qt::CaseInsensitive); }

QUrl AddressOf(const QString& text) {
    if (const auto link = LinkMail(text)) return *link;
    if (const auto mail = MakersMail(text)) return *mail;
    static const QRegularExpression strayPercent(QStringLiteral("%(?![0-9A-Fa-f]{2})"));
    QString mended = text;
    mended.replace(strayPercent, QStringLiteral("%25"));
    // A mail has no place to scroll to.
    return QUrl(mended.replace(u'#', QStringLiteral("%23")));
}

QUrl WithoutFiles(const QUrl& address) {
    static const QStringList kept{QStringLiteral("subject"), QStringLiteral("body"), QStringLiteral("to"),
                                  QStringLiteral("cc"), QStringLiteral("bcc")};
    QStringList fields;
    for (const QString& field : address.query(QUrl::FullyEncoded).split(u'&', Qt::SkipEmptyParts)) {
        const QString name = QUrl::fromPercentEncoding(field.section(u'=', 0, 0).toLatin1());
        if (kept.contains(name, Qt::CaseInsensitive)) fields << field;
    }
    QUrl mail = address;
    mail.setQuery(fields.isEmpty() ? QString() : fields.join(u'&'), QUrl::StrictMode);
    return mail;
}

} // namespace QtMail
