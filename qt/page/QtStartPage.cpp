#include "qt/page/QtStartPage.h"

#include "qt/base/QtPalette.h"
#include "qt/base/QtResources.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QUrl>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace {

const QString kPreview = QStringLiteral("preview/");
const QStringList kWritten{QStringLiteral("help"), QStringLiteral("private")};

// Pages are not told by every version of the engine that the desktop is dark.
QByteArray Written(const QString& name) {
    QByteArray page = QtResources::ReadText(name + QStringLiteral(".html")).toUtf8();
    if (QtPalette::IsDark(QGuiApplication::palette()))
        page.replace(QByteArrayLiteral("<html "), QByteArrayLiteral("<html class=\"dark\" "));
    return page;
}

} // namespace

bool QtStartPage::IsOwn(const QUrl& url) {
    const QString path = url.path();
    return url.scheme() == QLatin1String(Scheme()) &&
           (path == u"start" || kWritten.contains(path) || path.startsWith(kPreview));
}

bool QtStartPage::IsPreview(const QUrl& url) { return IsOwn(url) && url.path().startsWith(kPreview); }

void QtStartPage::RegisterScheme() {
    QWebEngineUrlScheme scheme(Scheme());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::LocalScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QByteArray QtStartPage::PageAt(const QString& path) const {
    if (path == u"start") return Page ? QByteArray::fromStdString(Page()) : QByteArray();
    return kWritten.contains(path) ? Written(path) : QByteArray();
}

QUrl QtStartPage::AddPreview(const std::shared_ptr<const QByteArray>& pdf, const QString& name) {
    std::erase_if(m_previews, [](const auto& each) { return each.second.expired(); });
    m_previews[++m_previewCount] = pdf;
    QUrl address;
    address.setScheme(QLatin1String(Scheme()));
    // The engine's viewer calls the page by the end of its address.
    address.setPath(QStringLiteral("%1%2/%3").arg(kPreview).arg(m_previewCount).arg(name), QUrl::DecodedMode);
    return address;
}

QByteArray QtStartPage::PreviewAt(const QString& path) const {
    const auto found = m_previews.find(path.section(u'/', 1, 1).toInt());
    const auto pdf = found == m_previews.end() ? nullptr : found->second.lock();
    return pdf ? *pdf : QByteArray();
}

void QtStartPage::requestStarted(QWebEngineUrlRequestJob* job) {
    const QUrl asker = job->initiator();
    if (!asker.isEmpty() && asker.scheme() != QLatin1String(Scheme())) {
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
        return;
    }
    const QString path = job->requestUrl().path();
    const bool preview = path.startsWith(kPreview);
    const QByteArray bytes = preview ? PreviewAt(path) : PageAt(path);
    if (bytes.isEmpty()) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    auto* page = new QBuffer(job);
    page->setData(bytes);
    job->reply(preview ? QByteArrayLiteral("application/pdf") : QByteArrayLiteral("text/html"), page);
}
