#include "qt/page/StartPageScheme.h"

#include "base/OwnAddresses.h"
#include "qt/base/Palette.h"
#include "qt/base/Resources.h"
#include "qt/base/Strings.h"
#include "startpage/HistoryPage.h"
#include "startpage/OwnAccess.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QUrl>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace tessa::qt {

namespace {

using OwnPage = OwnAddresses::Page;

// By the path, in which nothing is encoded any more.
OwnPage OwnPageAt(const QString& path) { return OwnAddresses::PageAt(FromQt(path)); }

// Pages are not told by every version of the engine that the desktop is dark.
QByteArray Written(const QString& name) {
    QByteArray page = Resources::ReadText(name + QStringLiteral(".html")).toUtf8();
    if (Palette::IsDark(QGuiApplication::palette()))
        page.replace(QByteArrayLiteral("<html "), QByteArrayLiteral("<html class=\"dark\" "));
    return page;
}

} // namespace

QByteArray StartPageScheme::Scheme() { return ToQt(OwnAddresses::kScheme).toLatin1(); }

bool StartPageScheme::IsOwn(const QUrl& url) {
    return url.scheme() == QLatin1String(Scheme()) && OwnPageAt(url.path()) != OwnPage::None;
}

bool StartPageScheme::IsHistory(const QUrl& url) { return IsOwn(url) && OwnPageAt(url.path()) == OwnPage::History; }

bool StartPageScheme::IsPreview(const QUrl& url) { return IsOwn(url) && OwnPageAt(url.path()) == OwnPage::Preview; }

void StartPageScheme::RegisterScheme() {
    QWebEngineUrlScheme scheme(Scheme());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::LocalScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QByteArray StartPageScheme::BytesAt(const QString& path) const {
    switch (OwnPageAt(path)) {
    case OwnPage::Start:
        return QByteArray::fromStdString(m_startPage());
    case OwnPage::Help:
    case OwnPage::Private:
        return Written(path);
    case OwnPage::History:
        return QByteArray::fromStdString(HistoryPage::Html(Palette::IsDark(QGuiApplication::palette())));
    case OwnPage::Preview:
        return PreviewAt(path);
    case OwnPage::None:
        break;
    }
    return {};
}

QUrl StartPageScheme::AddPreview(const std::shared_ptr<const QByteArray>& pdf, const QString& name) {
    std::erase_if(m_previews, [](const auto& each) { return each.second.expired(); });
    m_previews[++m_previewCount] = pdf;
    QUrl address;
    address.setScheme(QLatin1String(Scheme()));
    // The engine's viewer calls the page by the end of its address.
    address.setPath(QStringLiteral("%1%2/%3")
                        .arg(ToQt(OwnAddresses::PathOf(OwnAddresses::kPreviews)))
                        .arg(m_previewCount)
                        .arg(name),
                    QUrl::DecodedMode);
    return address;
}

QByteArray StartPageScheme::PreviewAt(const QString& path) const {
    const auto found = m_previews.find(path.section(u'/', 1, 1).toInt());
    const auto pdf = found == m_previews.end() ? nullptr : found->second.lock();
    return pdf ? *pdf : QByteArray();
}

void StartPageScheme::requestStarted(QWebEngineUrlRequestJob* job) {
    if (!OwnAccess::MayFetch(FromQt(job->initiator().toString(QUrl::FullyEncoded)))) {
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
        return;
    }
    const QString path = job->requestUrl().path();
    const QByteArray bytes = BytesAt(path);
    if (bytes.isEmpty()) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    auto* page = new QBuffer(job);
    page->setData(bytes);
    job->reply(OwnPageAt(path) == OwnPage::Preview ? QByteArrayLiteral("application/pdf")
                                                   : QByteArrayLiteral("text/html"),
               page);
}

} // namespace tessa::qt
