#include "qt/page/QtAddress.h"

#include "address/Endpoints.h"
#include "base/Address.h"
#include "qt/base/QtText.h"
#include "qt/page/QtMail.h"

#include <QDir>
#include <QHostAddress>
#include <QRegularExpression>
#include <optional>

namespace {

const QUrl& Blank() {
    static const QUrl blank(QStringLiteral("about:blank"));
    return blank;
}

// "localhost:8080" reads like a scheme; a port behind the colon says that it is a host.
bool HasScheme(const QString& text) {
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:(?!\\d{1,5}(?:[/?#]|$))"));
    return scheme.match(text).hasMatch();
}

bool LooksLikeHost(const QString& text) {
    static const QRegularExpression host(
        QStringLiteral("^(\\[[0-9A-Fa-f:.]+\\]|[^\\s/?#:@.]+(\\.[^\\s/?#:@.]+)*\\.?)(:\\d{1,5})?([/?#]\\S*)?$"));
    const auto match = host.match(text);
    if (!match.hasMatch()) return false;
    const QString name = match.captured(1);
    return name.contains(u'.') || name.startsWith(u'[') || name == u"localhost" || !match.captured(3).isEmpty();
}

QUrl WithScheme(const QString& scheme, const QString& text) { return QUrl(scheme + QStringLiteral("://") + text); }

// The product appends words to these addresses as they are; whatever they contain must arrive at the service.
std::optional<QUrl> WithWords(const QString& text) {
    for (const TextView endpoint : {Endpoints::kSearch, Endpoints::kShop, Endpoints::kFind}) {
        const QString start = ToQt(endpoint);
        if (!text.startsWith(start)) continue;
        const QByteArray words = QUrl::toPercentEncoding(text.mid(start.size()));
        return QUrl::fromEncoded(start.toLatin1() + words);
    }
    return std::nullopt;
}

} // namespace

Text QtAddress::Shown(const QUrl& url) {
    QUrl shown = url.adjusted(QUrl::RemoveUserInfo);
    // As the engine writes it.
    if (shown.path().isEmpty() && !shown.host().isEmpty()) shown.setPath(QStringLiteral("/"));
    return FromQt(shown.toString(QUrl::FullyEncoded));
}

QtAddress QtAddress::FromTyped(TextView typed) {
    // As who looks whether an address may open reads it.
    const QString text = ToQt(Address::Trimmed(typed));
    if (text.isEmpty() || text.startsWith(u"javascript:", Qt::CaseInsensitive)) return {Blank(), {}};
    if (const auto words = WithWords(ToQt(typed))) return {*words, {}};
    if (QtMail::IsMail(text)) return {QtMail::AddressOf(text), {}};
    // From which folder another path was meant, nobody knows here.
    if (text.startsWith(u'/')) return {QUrl::fromLocalFile(QDir::cleanPath(text)), {}};
    if (HasScheme(text)) {
        if (const QUrl url(text); url.isValid()) return {url, {}};
    } else if (LooksLikeHost(text)) {
        const QUrl secure = WithScheme(QStringLiteral("https"), text);
        if (secure.isValid()) return {secure, WithScheme(QStringLiteral("http"), text)};
    }
    return {*WithWords(ToQt(Endpoints::kSearch) + text), {}};
}
