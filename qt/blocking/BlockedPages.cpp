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

using Info = QWebEngineUrlRequestInfo;

constexpr std::pair<Info::ResourceType, RequestType> kResourceTypes[] = {
    {Info::ResourceTypeSubFrame, RequestType::Frame},
    {Info::ResourceTypeNavigationPreloadSubFrame, RequestType::Frame},
    {Info::ResourceTypeStylesheet, RequestType::Stylesheet},
    {Info::ResourceTypeScript, RequestType::Script},
    {Info::ResourceTypeWorker, RequestType::Script},
    {Info::ResourceTypeSharedWorker, RequestType::Script},
    {Info::ResourceTypeServiceWorker, RequestType::Script},
    {Info::ResourceTypeImage, RequestType::Image},
    {Info::ResourceTypeFavicon, RequestType::Image},
    {Info::ResourceTypeFontResource, RequestType::Font},
    {Info::ResourceTypeObject, RequestType::Object},
    {Info::ResourceTypePluginResource, RequestType::Object},
    {Info::ResourceTypeMedia, RequestType::Media},
    {Info::ResourceTypeXhr, RequestType::Xhr},
    {Info::ResourceTypePing, RequestType::Ping},
    {Info::ResourceTypeCspReport, RequestType::Ping},
    {Info::ResourceTypeWebSocket, RequestType::WebSocket},
};

RequestType BlockedTypeOf(Info::ResourceType type) {
    const auto* found = std::ranges::find(kResourceTypes, type, &std::pair<Info::ResourceType, RequestType>::first);
    return found == std::ranges::end(kResourceTypes) ? RequestType::Other : found->second;
}

bool IsPageItself(Info::ResourceType type) {
    return type == Info::ResourceTypeMainFrame || type == Info::ResourceTypeNavigationPreloadMainFrame;
}

// Whatever the engine calls it, a web socket is one.
RequestType TypeOf(const Info& info) {
    const QString scheme = info.requestUrl().scheme();
    return scheme == u"ws" || scheme == u"wss" ? RequestType::WebSocket : BlockedTypeOf(info.resourceType());
}

// Some requests outlive the page that makes them, or come from none. They have no interceptor but the profile's.
bool HasPage(Info::ResourceType type) {
    return type != Info::ResourceTypeServiceWorker && type != Info::ResourceTypeSharedWorker &&
           type != Info::ResourceTypePing && type != Info::ResourceTypeCspReport;
}

// Of these nobody awaits an answer, or the engine takes none from elsewhere.
bool MayBeEmptied(const Info& info) {
    const RequestType type = TypeOf(info);
    return HasPage(info.resourceType()) && info.resourceType() != Info::ResourceTypeWorker &&
           type != RequestType::WebSocket && type != RequestType::Object;
}

void Stop(Info& info, EmptyResource instead) {
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
    const auto keep = [this, shown = &page] { m_pages[shown].requested = shown->requestedUrl(); };
    connect(&page, &QWebEnginePage::urlChanged, this, keep);
    connect(&page, &QWebEnginePage::loadFinished, this, keep);
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

// The engine takes long to say what was requested, and of a page that does not load it says always the same.
bool BlockedPages::Stopped::IsAt(const QUrl& shown, IsSame isSame) const {
    return page && (isSame(page->url(), shown) || isSame(page->isLoading() ? page->requestedUrl() : requested, shown));
}

// The engine says to whom a request belongs by the address of the page alone, which several may have.
std::vector<QWebEnginePage*> BlockedPages::FindPages(const QUrl& shown, IsSame isSame) const {
    std::vector<QWebEnginePage*> found;
    for (const auto& [page, stopped] : m_pages)
        if (stopped.IsAt(shown, isSame)) found.push_back(stopped.page);
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
