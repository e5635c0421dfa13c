#include "qt/blocking/BlockedPages.h"

#include <QWebEnginePage>
#include <QWebEngineUrlRequestInfo>

namespace tessa::qt {

namespace {

constexpr std::size_t kMostKept = 500;

RequestType BlockedTypeOf(QWebEngineUrlRequestInfo::ResourceType type) {
    switch (type) {
    case QWebEngineUrlRequestInfo::ResourceTypeSubFrame:
    case QWebEngineUrlRequestInfo::ResourceTypeNavigationPreloadSubFrame:
        return RequestType::Frame;
    case QWebEngineUrlRequestInfo::ResourceTypeStylesheet:
        return RequestType::Stylesheet;
    case QWebEngineUrlRequestInfo::ResourceTypeScript:
    case QWebEngineUrlRequestInfo::ResourceTypeWorker:
    case QWebEngineUrlRequestInfo::ResourceTypeSharedWorker:
    case QWebEngineUrlRequestInfo::ResourceTypeServiceWorker:
        return RequestType::Script;
    case QWebEngineUrlRequestInfo::ResourceTypeImage:
    case QWebEngineUrlRequestInfo::ResourceTypeFavicon:
        return RequestType::Image;
    case QWebEngineUrlRequestInfo::ResourceTypeFontResource:
        return RequestType::Font;
    case QWebEngineUrlRequestInfo::ResourceTypeObject:
    case QWebEngineUrlRequestInfo::ResourceTypePluginResource:
        return RequestType::Object;
    case QWebEngineUrlRequestInfo::ResourceTypeMedia:
        return RequestType::Media;
    case QWebEngineUrlRequestInfo::ResourceTypeXhr:
        return RequestType::Xhr;
    case QWebEngineUrlRequestInfo::ResourceTypePing:
    case QWebEngineUrlRequestInfo::ResourceTypeCspReport:
        return RequestType::Ping;
    default:
        break;
    }
    return static_cast<int>(type) == 254 ? RequestType::WebSocket : RequestType::Other;
}

bool IsPageItself(QWebEngineUrlRequestInfo::ResourceType type) {
    return type == QWebEngineUrlRequestInfo::ResourceTypeMainFrame ||
           type == QWebEngineUrlRequestInfo::ResourceTypeNavigationPreloadMainFrame;
}

// Whatever the engine calls it, a web socket is one.
RequestType TypeOf(const QWebEngineUrlRequestInfo& info) {
    const QString scheme = info.requestUrl().scheme();
    return scheme == u"ws" || scheme == u"wss" ? RequestType::WebSocket : BlockedTypeOf(info.resourceType());
}

bool IsSamePage(const QUrl& one, const QUrl& other) { return one.matches(other, QUrl::RemoveFragment); }

bool IsSameOrigin(const QUrl& one, const QUrl& other) {
    constexpr auto kOthers = QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment;
    return one.matches(other, kOthers);
}

} // namespace

void BlockedPages::Follow(QWebEnginePage& page) {
    m_pages[&page] = {&page, 0, {}};
    connect(&page, &QWebEnginePage::loadStarted, this, [this, shown = &page] {
        m_pages[shown] = {shown, 0, {}};
        Counted(*shown);
    });
    connect(&page, &QObject::destroyed, this, [this, gone = &page] { m_pages.erase(gone); });
}

// The engine does not say which page asks, only what address it has. Where several have the same, the one that loads.
QWebEnginePage* BlockedPages::FindPage(const QUrl& shown, bool (*isSame)(const QUrl&, const QUrl&)) const {
    QWebEnginePage* found = nullptr;
    for (const auto& [page, stopped] : m_pages) {
        if (!stopped.page || (!isSame(stopped.page->url(), shown) && !isSame(stopped.page->requestedUrl(), shown)))
            continue;
        if (!found || stopped.page->isLoading()) found = stopped.page;
    }
    return found;
}

// Qt 6.11 knows of a web socket the address of its frame, and of the page only the origin.
QWebEnginePage* BlockedPages::FindAsker(const QWebEngineUrlRequestInfo& info) const {
    QWebEnginePage* page = FindPage(info.firstPartyUrl(), IsSamePage);
    if (!page) page = FindPage(info.initiator(), IsSamePage);
    return page ? page : FindPage(info.firstPartyUrl(), IsSameOrigin);
}

bool BlockedPages::Stops(const QWebEngineUrlRequestInfo& info) {
    if (!m_blocker.IsOn() || IsPageItself(info.resourceType())) return false;
    const QUrl page = info.firstPartyUrl(), address = info.requestUrl();
    const RuleVerdict verdict = m_blocker.VerdictOn(address, info.initiator(), page, TypeOf(info));
    if (!verdict.Blocked) return false;
    if (auto* shown = FindAsker(info)) Note(*shown, address, *verdict.By);
    return true;
}

bool BlockedPages::StopsPopup(const QUrl& target, QWebEnginePage& opener) {
    const RuleVerdict verdict = m_blocker.VerdictOn(target, opener.url(), opener.url(), RequestType::Popup);
    if (verdict.Blocked) Note(opener, target, *verdict.By);
    return verdict.Blocked;
}

void BlockedPages::Note(QWebEnginePage& page, const QUrl& address, const RuleFound& by) {
    Stopped& stopped = m_pages[&page];
    stopped.page = &page;
    ++stopped.count;
    if (stopped.first.size() < kMostKept)
        stopped.first.push_back({address, QString::fromUtf8(by.Line.data(), static_cast<qsizetype>(by.Line.size())),
                                 m_blocker.ListName(by.List)});
    Counted(page);
}

int BlockedPages::Count(const QWebEnginePage* page) const {
    const auto found = m_pages.find(page);
    return found == m_pages.end() ? 0 : found->second.count;
}

std::vector<BlockedRequest> BlockedPages::On(const QWebEnginePage* page) const {
    const auto found = m_pages.find(page);
    return found == m_pages.end() ? std::vector<BlockedRequest>() : found->second.first;
}

} // namespace tessa::qt
