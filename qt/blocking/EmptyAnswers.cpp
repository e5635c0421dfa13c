#include "qt/blocking/EmptyAnswers.h"

#include <QBuffer>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <string_view>

namespace tessa::qt {

namespace {

QByteArray ToBytes(std::string_view bytes) { return {bytes.data(), static_cast<qsizetype>(bytes.size())}; }

} // namespace

// A page's own policy names where its scripts come from, and never us.
void EmptyAnswers::RegisterScheme() {
    QWebEngineUrlScheme scheme(Scheme());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled |
                    QWebEngineUrlScheme::ContentSecurityPolicyIgnored);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl EmptyAnswers::AddressOf(EmptyResource resource) {
    return QUrl(QString::fromLatin1(Scheme()) + u':' + QString::number(static_cast<int>(resource)));
}

void EmptyAnswers::Follow(QWebEngineProfile& profile) { profile.installUrlSchemeHandler(Scheme(), this); }

void EmptyAnswers::requestStarted(QWebEngineUrlRequestJob* job) {
    const int number = job->requestUrl().path().toInt();
    if (number <= static_cast<int>(EmptyResource::None) || number > static_cast<int>(EmptyResource::Xml))
        return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    const auto resource = static_cast<EmptyResource>(number);
    auto* body = new QBuffer(job);
    body->setData(ToBytes(BytesOf(resource)));
    job->reply(ToBytes(MediaTypeOf(resource)), body);
}

} // namespace tessa::qt
