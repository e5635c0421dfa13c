#include "qt/QtStartPage.h"

#include <QBuffer>
#include <QUrl>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

bool QtStartPage::IsStart(const QUrl& url) {
    return url.scheme() == QLatin1String(Scheme()) && url.path() == QStringLiteral("start");
}

void QtStartPage::RegisterScheme() {
    QWebEngineUrlScheme scheme(Scheme());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::LocalScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

void QtStartPage::requestStarted(QWebEngineUrlRequestJob* job) {
    const QUrl asker = job->initiator();
    if (!asker.isEmpty() && asker.scheme() != QLatin1String(Scheme())) {
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
    } else if (!IsStart(job->requestUrl()) || !Page) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    } else {
        auto* page = new QBuffer(job);
        page->setData(QByteArray::fromStdString(Page()));
        job->reply(QByteArrayLiteral("text/html"), page);
    }
}
