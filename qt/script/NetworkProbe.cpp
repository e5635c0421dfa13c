#include "qt/script/NetworkProbe.h"

#include "pages/Certificates.h"
#include "qt/base/Strings.h"
#include "qt/questions/RefusedCertificates.h"

#include <QNetworkCookie>
#include <QNetworkCookieJar>
#include <QNetworkReply>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QUrl>

namespace tessa::qt {

namespace {

/// Keeps nothing and gives nothing.
class NoCookies final : public QNetworkCookieJar {
public:
    using QNetworkCookieJar::QNetworkCookieJar;
    [[nodiscard]] QList<QNetworkCookie> cookiesForUrl(const QUrl&) const override { return {}; }
    bool setCookiesFromUrl(const QList<QNetworkCookie>&, const QUrl&) override { return false; }
};

ProbeAnswer::Trouble TroubleOf(QNetworkReply::NetworkError error) {
    using Trouble = ProbeAnswer::Trouble;
    switch (error) {
    case QNetworkReply::HostNotFoundError:
        return Trouble::NoHost;
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::RemoteHostClosedError:
        return Trouble::Refused;
    case QNetworkReply::SslHandshakeFailedError:
        return Trouble::Certificate;
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError:
        return Trouble::TimeOut;
    default:
        return Trouble::Other;
    }
}

ProbeAnswer AnswerIn(const QNetworkReply& reply) {
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status == 0) return {.trouble = TroubleOf(reply.error())};
    const QUrl location = reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (location.isEmpty()) return {.status = status};
    return {.status = status, .location = FromQt(reply.url().resolved(location).toString(QUrl::FullyEncoded))};
}

} // namespace

NetworkProbe::NetworkProbe(const AcceptedCertificates& accepted, int patience)
    : m_accepted(accepted), m_patience(patience) {
    m_network.setCookieJar(new NoCookies);
}

void NetworkProbe::Ask(const Text& address, std::function<void(const ProbeAnswer&)> answered) {
    QNetworkRequest request(QUrl(ToQt(address), QUrl::TolerantMode));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setTransferTimeout(m_patience);
    // Some servers answer nobody who does not say who he is.
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Mozilla/5.0 (TessaView)"));
    auto* reply = m_network.get(request);
    m_open.insert(reply);
    connect(reply, &QNetworkReply::sslErrors, this, [this, reply] { OnRefused(*reply); });
    // Queued: a reply must not go while it tells.
    connect(
        reply, &QNetworkReply::metaDataChanged, this, [this, reply, answered] { End(reply, answered); },
        Qt::QueuedConnection);
    connect(
        reply, &QNetworkReply::finished, this, [this, reply, answered] { End(reply, answered); }, Qt::QueuedConnection);
}

// A host that the user has gone on to in a page is fine here too, with the same certificate.
void NetworkProbe::OnRefused(QNetworkReply& reply) const {
    const QSslCertificate leaf = reply.sslConfiguration().peerCertificate();
    if (!leaf.isNull() && m_accepted.Has(PlaceOf(reply.url()), FingerprintOf(leaf))) reply.ignoreSslErrors();
}

void NetworkProbe::End(QNetworkReply* reply, const std::function<void(const ProbeAnswer&)>& answered) {
    if (!m_open.remove(reply)) return;
    const ProbeAnswer answer = AnswerIn(*reply);
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
    answered(answer);
}

void NetworkProbe::StopAll() {
    for (QNetworkReply* reply : std::exchange(m_open, {})) {
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
}

} // namespace tessa::qt
