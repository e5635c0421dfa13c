#include "qt/engine/Requests.h"

#include "pages/LocalPages.h"
#include "qt/base/Strings.h"
#include "qt/blocking/BlockedPages.h"

#include <QRegularExpression>
#include <QUrl>

namespace tessa::qt {

namespace {

// By its name alone: the engine asks for sounds and videos alike.
bool NamesSound(const QString& path) {
    static const QRegularExpression sound(QStringLiteral("\\.(mp3|ogg|oga|opus|wav|m4a|aac|flac|weba)$"),
                                          QRegularExpression::CaseInsensitiveOption);
    return sound.match(path).hasMatch();
}

LocalUse LocalUseOf(QWebEngineUrlRequestInfo::ResourceType type) {
    switch (type) {
    case QWebEngineUrlRequestInfo::ResourceTypeMainFrame:
        return LocalUse::Page;
    case QWebEngineUrlRequestInfo::ResourceTypeSubFrame:
        return LocalUse::Frame;
    case QWebEngineUrlRequestInfo::ResourceTypeImage:
    case QWebEngineUrlRequestInfo::ResourceTypeFavicon:
    case QWebEngineUrlRequestInfo::ResourceTypeStylesheet:
    case QWebEngineUrlRequestInfo::ResourceTypeScript:
    case QWebEngineUrlRequestInfo::ResourceTypeFontResource:
    case QWebEngineUrlRequestInfo::ResourceTypeMedia:
        return LocalUse::Part;
    default:
        return LocalUse::Data;
    }
}

// The engine has a switch of its own, but without it a saved page has no pictures either. That pages of the web get no
// file it sees to by itself.
bool ReadsFileOfOthers(const QWebEngineUrlRequestInfo& info) {
    const auto isFile = [](const QUrl& url) { return url.scheme() == u"file"; };
    const QUrl page = info.firstPartyUrl();
    if (!isFile(info.requestUrl()) || (!isFile(page) && !isFile(info.initiator()))) return false;
    const QString of = isFile(page) ? page.path() : QString();
    return !MayLoadLocal(FromQt(of), FromQt(info.requestUrl().path()), LocalUseOf(info.resourceType()));
}

} // namespace

bool Requests::HoldsBack(const QWebEngineUrlRequestInfo& info) const {
    if (info.resourceType() != QWebEngineUrlRequestInfo::ResourceTypeMedia) return false;
    return NamesSound(info.requestUrl().path()) ? !Loads.sounds : !Loads.videos && !Loads.sounds;
}

void Requests::interceptRequest(QWebEngineUrlRequestInfo& info) {
    if (HoldsBack(info) || ReadsFileOfOthers(info)) return info.block(true);
    if (m_blocked && m_blocked->Judge(info)) return;
    if (DoNotTrack) info.setHttpHeader(QByteArrayLiteral("DNT"), QByteArrayLiteral("1"));
    if (GlobalPrivacyControl) info.setHttpHeader(QByteArrayLiteral("Sec-GPC"), QByteArrayLiteral("1"));
    if (info.resourceType() != QWebEngineUrlRequestInfo::ResourceTypeMainFrame) return;
    if (!info.requestUrl().host().endsWith(u".tessaview.example")) return;
    const QByteArray address = info.requestUrl().toEncoded();
    const ServiceTemplates templates = m_templates();
    const std::string_view asked(address.constData(), static_cast<std::size_t>(address.size()));
    if (const auto target = Services::TargetOf(asked, templates))
        info.redirect(QUrl::fromEncoded(QByteArray::fromStdString(*target)));
}

} // namespace tessa::qt
