#include "qt/blocking/BlockedPages.h"

#include "qt/blocking/EmptyAnswers.h"
#include "qt/page/WebPage.h"

#include <QWebEnginePage>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestInterceptor>
#include <algorithm>
#include <utility>

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

// What outlives the page that asks for it, or was never asked for by one, has no interceptor but the profile's.
bool HasPage(QWebEngineUrlRequestInfo::ResourceType type) {
    return type != QWebEngineUrlRequestInfo::ResourceTypeServiceWorker &&
           type != QWebEngineUrlRequestInfo::ResourceTypeSharedWorker &&
           type != QWebEngineUrlRequestInfo::ResourceTypePing &&
           type != QWebEngineUrlRequestInfo::ResourceTypeCspReport;
}

// Of these nobody awaits an answer, or the engine takes none from elsewhere.
bool MayBeEmptied(const QWebEngineUrlRequestInfo& info) {
    const RequestType type = TypeOf(info);
    return HasPage(info.resourceType()) && info.resourceType() != QWebEngineUrlRequestInfo::ResourceTypeWorker &&
           type != RequestType::WebSocket && type != RequestType::Object;
}

void Stop(QWebEngineUrlRequestInfo& info, EmptyResource instead) {
    if (instead == EmptyResource::None || !MayBeEmptied(info)) return info.block(true);
    info.redirect(EmptyAnswers::AddressOf(instead));
}

// Taking the fragments off takes long when a hundred pages are compared.
bool IsSamePage(const QUrl& one, const QUrl& other) {
    if (!one.hasFragment() && !other.hasFragment()) return one == other;
    return one.matches(other, QUrl::RemoveFragment);
}

bool IsSameOrigin(const QUrl& one, const QUrl& other) {
    constexpr auto kOthers = QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment;
    return one.matches(other, kOthers);
}

} // namespace

/// Is asked right after the profile's interceptor, and knows the page.
class BlockedPages::OfPage final : public QWebEngineUrlRequestInterceptor {
public:
    OfPage(BlockedPages& all, QWebEnginePage& page) : m_all(all), m_page(page) {}
    void interceptRequest(QWebEngineUrlRequestInfo& info) override { m_all.JudgeFor(m_page, info); }

private:
    BlockedPages& m_all;
    QWebEnginePage& m_page;
};

BlockedPages::BlockedPages(Blocker& blocker) : m_blocker(blocker) {}

BlockedPages::~BlockedPages() {
    for (const auto& [page, stopped] : m_pages)
        if (stopped.page) stopped.page->setUrlRequestInterceptor(nullptr);
}

void BlockedPages::Follow(QWebEnginePage& page) {
    Stopped& stopped = m_pages[&page];
    stopped.page = &page;
    stopped.interceptor = std::make_unique<OfPage>(*this, page);
    page.setUrlRequestInterceptor(stopped.interceptor.get());
    connect(&page, &QWebEnginePage::loadStarted, this, [this, shown = &page] { Begin(*shown); });
    connect(&page, &QObject::destroyed, this, [this, gone = &page] { m_pages.erase(gone); });
}

void BlockedPages::Begin(QWebEnginePage& page) {
    Stopped& stopped = m_pages[&page];
    stopped.count = 0;
    stopped.first.clear();
    Counted(page);
}

void BlockedPages::FollowOpened(WebPage& opened, QWebEnginePage& opener) {
    m_pages[&opened].leadsOn = opened.LeadsOn.Connect([this, page = &opened, by = QPointer<QWebEnginePage>(&opener),
                                                       from = opener.url()](const QUrl& url, bool& stays) {
        const QUrl shown = page->ShownAddress();
        if (!stays || (!shown.isEmpty() && shown.scheme() != u"about")) return;
        const RuleVerdict verdict = m_blocker.VerdictOn(url, from, from, RequestType::Popup);
        if (!verdict.Blocked) return;
        stays = false;
        if (by) Note(*by, url, *verdict.By);
    });
}

// The engine says to whom a request belongs by the address of the page alone, which several may have.
std::vector<QWebEnginePage*> BlockedPages::FindPages(const QUrl& shown, IsSame isSame) const {
    std::vector<QWebEnginePage*> found;
    for (const auto& [page, stopped] : m_pages)
        if (stopped.page && (isSame(stopped.page->url(), shown) || isSame(stopped.page->requestedUrl(), shown)))
            found.push_back(stopped.page);
    // Where nobody says it better, the one that loads.
    std::ranges::stable_partition(found, &QWebEnginePage::isLoading);
    return found;
}

// Qt 6.11 knows of a web socket the address of its frame, and of the page only the origin.
QWebEnginePage* BlockedPages::FindAsker(const QWebEngineUrlRequestInfo& info) const {
    std::vector<QWebEnginePage*> pages = FindPages(info.initiator(), IsSamePage);
    if (pages.empty()) pages = FindPages(info.firstPartyUrl(), IsSameOrigin);
    return pages.empty() ? nullptr : pages.front();
}

bool BlockedPages::Judge(QWebEngineUrlRequestInfo& info) {
    m_left.reset();
    if (!m_blocker.IsOn() || IsPageItself(info.resourceType())) return false;
    const QUrl page = info.firstPartyUrl(), address = info.requestUrl();
    const RuleVerdict verdict = m_blocker.VerdictOn(address, info.initiator(), page, TypeOf(info));
    if (!verdict.Blocked) return false;
    const std::vector<QWebEnginePage*> pages = FindPages(page, IsSamePage);
    if (pages.size() > 1 && HasPage(info.resourceType())) {
        m_left = Left{address, verdict};
        return true;
    }
    Stop(info, verdict.Instead);
    if (auto* shown = pages.empty() ? FindAsker(info) : pages.front()) Note(*shown, address, *verdict.By);
    return true;
}

void BlockedPages::JudgeFor(QWebEnginePage& page, QWebEngineUrlRequestInfo& info) {
    const std::optional<Left> left = std::exchange(m_left, std::nullopt);
    if (!left || left->address != info.requestUrl()) return;
    Stop(info, left->verdict.Instead);
    Note(page, left->address, *left->verdict.By);
}

bool BlockedPages::StopsPopup(const QUrl& target, QWebEnginePage& opener) {
    const RuleVerdict verdict = m_blocker.VerdictOn(target, opener.url(), opener.url(), RequestType::Popup);
    if (verdict.Blocked) Note(opener, target, *verdict.By);
    return verdict.Blocked;
}

void BlockedPages::Note(QWebEnginePage& page, const QUrl& address, const RuleFound& by) {
    Stopped& stopped = m_pages[&page];
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
