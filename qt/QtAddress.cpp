#include "qt/QtAddress.h"

#include "commands/Endpoints.h"
#include "qt/QtText.h"

#include <QDir>
#include <QFileInfo>
#include <QHostAddress>
#include <QRegularExpression>

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

} // namespace

QtAddress QtAddress::FromTyped(TextView typed) {
    const QString text = ToQt(typed).trimmed();
    if (text.isEmpty() || text.startsWith(u"javascript:", Qt::CaseInsensitive)) return {Blank(), {}};
    if (QDir::isAbsolutePath(text) || QFileInfo::exists(text)) {
        return {QUrl::fromLocalFile(QFileInfo(text).absoluteFilePath()), {}};
    }
    if (HasScheme(text)) {
        if (const QUrl url(text); url.isValid()) return {url, {}};
    } else if (LooksLikeHost(text)) {
        const QUrl secure = WithScheme(QStringLiteral("https"), text);
        if (secure.isValid()) return {secure, WithScheme(QStringLiteral("http"), text)};
    }
    return {QUrl(ToQt(Endpoints::kSearch) + QString::fromUtf8(QUrl::toPercentEncoding(text))), {}};
}
