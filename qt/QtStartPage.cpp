#include "qt/QtStartPage.h"

#include <QBuffer>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace {

constexpr auto kPage = R"html(<!doctype html><html lang="en"><head><meta charset="utf-8">
<title>TessaView</title><meta name="color-scheme" content="light dark">
<style>
body { font: 16px/1.5 system-ui, sans-serif; margin: 12vh auto 0; max-width: 34em; padding: 0 1.5em; }
h1 { font-weight: 300; font-size: 2.6em; margin: 0 0 .3em; }
kbd { border: 1px solid; border-radius: 4px; padding: 0 .4em; opacity: .75; }
</style></head><body>
<h1>TessaView</h1>
<p>Type an address above and press <kbd>Enter</kbd>, or open a whole TessaGroup from the File menu: every address of
the group becomes a tab of its own.</p>
</body></html>)html";

} // namespace

void QtStartPage::RegisterScheme() {
    QWebEngineUrlScheme scheme(Scheme());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::LocalScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

void QtStartPage::requestStarted(QWebEngineUrlRequestJob* job) {
    if (job->requestUrl().path() != u"start") {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    auto* page = new QBuffer(job);
    page->setData(kPage);
    job->reply(QByteArrayLiteral("text/html"), page);
}
