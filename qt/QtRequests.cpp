#include "qt/QtRequests.h"

#include <QRegularExpression>
#include <QUrl>

namespace {

// By its name alone: the engine asks for sounds and videos alike.
bool NamesSound(const QString& path) {
    static const QRegularExpression sound(QStringLiteral("\\.(mp3|ogg|oga|opus|wav|m4a|aac|flac|weba)$"),
                                          QRegularExpression::CaseInsensitiveOption);
    return sound.match(path).hasMatch();
}

} // namespace

bool QtRequests::HoldsBack(const QWebEngineUrlRequestInfo& info) const {
    if (info.resourceType() != QWebEngineUrlRequestInfo::ResourceTypeMedia) return false;
    return NamesSound(info.requestUrl().path()) ? !Loads.sounds : !Loads.videos && !Loads.sounds;
}

void QtRequests::interceptRequest(QWebEngineUrlRequestInfo& info) {
    if (HoldsBack(info)) return info.block(true);
    if (DoNotTrack) info.setHttpHeader(QByteArrayLiteral("DNT"), QByteArrayLiteral("1"));
    if (GlobalPrivacyControl) info.setHttpHeader(QByteArrayLiteral("Sec-GPC"), QByteArrayLiteral("1"));
    if (info.resourceType() != QWebEngineUrlRequestInfo::ResourceTypeMainFrame) return;
    if (!info.requestUrl().host().endsWith(u".tessaview.example")) return;
    const QByteArray address = info.requestUrl().toEncoded();
    const ServiceTemplates templates = Templates ? Templates() : ServiceTemplates();
    const std::string_view asked(address.constData(), static_cast<std::size_t>(address.size()));
    if (const auto target = Services::TargetOf(asked, templates))
        info.redirect(QUrl::fromEncoded(QByteArray::fromStdString(*target)));
}
