#include "qt/QtRequests.h"

#include <QUrl>

void QtRequests::interceptRequest(QWebEngineUrlRequestInfo& info) {
    if (info.resourceType() != QWebEngineUrlRequestInfo::ResourceTypeMainFrame) return;
    if (!info.requestUrl().host().endsWith(u".tessaview.example")) return;
    const QByteArray address = info.requestUrl().toEncoded();
    const ServiceTemplates templates = Templates ? Templates() : ServiceTemplates();
    const std::string_view asked(address.constData(), static_cast<std::size_t>(address.size()));
    if (const auto target = Services::TargetOf(asked, templates))
        info.redirect(QUrl::fromEncoded(QByteArray::fromStdString(*target)));
}
