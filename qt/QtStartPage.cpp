#include "qt/QtStartPage.h"

#include "qt/QtPalette.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QUrl>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace {

// Pages are not told by every version of the engine that the desktop is dark.
QByteArray Help() {
    QFile file(QStringLiteral(":/help.html"));
    if (!file.open(QFile::ReadOnly)) return {};
    QByteArray page = file.readAll();
    if (QtPalette::IsDark(QGuiApplication::palette()))
        page.replace(QByteArrayLiteral("<html "), QByteArrayLiteral("<html class=\"dark\" "));
    return page;
}

} // namespace

bool QtStartPage::IsOwn(const QUrl& url) {
    const QString path = url.path();
    return url.scheme() == QLatin1String(Scheme()) &&
           (path == QStringLiteral("start") || path == QStringLiteral("help"));
}

void QtStartPage::RegisterScheme() {
    QWebEngineUrlScheme scheme(Scheme());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::LocalScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QByteArray QtStartPage::PageAt(const QString& path) const {
    if (path == u"start") return Page ? QByteArray::fromStdString(Page()) : QByteArray();
    return path == u"help" ? Help() : QByteArray();
}

void QtStartPage::requestStarted(QWebEngineUrlRequestJob* job) {
    const QUrl asker = job->initiator();
    if (!asker.isEmpty() && asker.scheme() != QLatin1String(Scheme())) {
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
        return;
    }
    const QByteArray html = PageAt(job->requestUrl().path());
    if (html.isEmpty()) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    auto* page = new QBuffer(job);
    page->setData(html);
    job->reply(QByteArrayLiteral("text/html"), page);
}
