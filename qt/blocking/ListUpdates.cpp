#include "qt/blocking/ListUpdates.h"

#include "base/ResumeNext.h"
#include "base/os/Log.h"
#include "blocking/ListCatalogue.h"
#include "blocking/RuleLine.h"
#include "qt/base/Strings.h"
#include "qt/blocking/Blocker.h"

#include <QDateTime>
#include <QNetworkReply>
#include <chrono>
#include <utility>

namespace tessa::qt {

namespace {

constexpr std::chrono::seconds kFirstLook{3}, kEachLook{10 * 60};
constexpr std::chrono::milliseconds kListPatience{std::chrono::minutes{1}};
constexpr int kAnswerOk = 200, kAnswerSame = 304;

std::int64_t NowInSeconds() { return QDateTime::currentSecsSinceEpoch(); }

std::vector<Text> FetchedOf(const std::vector<Text>& chosen) {
    std::vector<Text> addresses;
    for (const Text& each : chosen)
        if (Text source = ListCatalogue::SourceOf(each); ListCatalogue::IsFetched(source)) addresses.push_back(source);
    return addresses;
}

QNetworkRequest RequestFor(const ShelvedList& list) {
    QNetworkRequest request(QUrl(ToQt(list.Address)));
    // Not to http, where anybody on the way could write the list.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setTransferTimeout(static_cast<int>(kListPatience.count()));
    if (!list.Tag.empty()) request.setRawHeader("If-None-Match", QByteArray::fromStdString(ToUtf8(list.Tag)));
    if (!list.Modified.empty())
        request.setRawHeader("If-Modified-Since", QByteArray::fromStdString(ToUtf8(list.Modified)));
    return request;
}

Text HeaderOf(const QNetworkReply& reply, const char* name) {
    return FromQt(QString::fromLatin1(reply.rawHeader(name)));
}

// Without these words of its length, nobody can tell a list that was cut from a whole one.
bool IsKnownToBeWhole(const QNetworkReply& reply) {
    return reply.hasRawHeader("Content-Length") || reply.hasRawHeader("Transfer-Encoding") ||
           reply.attribute(QNetworkRequest::Http2WasUsedAttribute).toBool();
}

} // namespace

ListUpdates::ListUpdates(Blocker& blocker, std::function<bool()> isIdle)
    : m_blocker(blocker), m_isIdle(std::move(isIdle)) {
    m_clock.setSingleShot(true);
    connect(&m_clock, &QTimer::timeout, this, &ListUpdates::OnClock);
    m_changed = m_blocker.Changed.Connect([this] {
        if (!m_blocker.IsOn()) return m_clock.stop();
        if (!m_clock.isActive() || m_clock.remainingTimeAsDuration() > kFirstLook) m_clock.start(kFirstLook);
    });
}

void ListUpdates::OnClock() {
    m_clock.start(m_isIdle() ? kEachLook : kFirstLook);
    if (!m_blocker.IsOn() || m_running > 0 || !m_isIdle()) return;
    Fetch(m_blocker.Shelf().Due(FetchedOf(m_blocker.Lists()), NowInSeconds()));
}

void ListUpdates::Update(std::function<void(const Text&)> told) {
    m_told = std::move(told);
    if (m_running > 0) return;
    std::vector<ShelvedList> lists;
    for (const Text& each : FetchedOf(m_blocker.Lists())) lists.push_back(m_blocker.Shelf().Find(each));
    if (lists.empty()) return m_told(u"None of these lists is fetched from anywhere.");
    Fetch(lists);
}

void ListUpdates::Fetch(const std::vector<ShelvedList>& lists) {
    m_newer = m_failed = 0;
    for (const ShelvedList& each : lists) FetchOne(each);
}

void ListUpdates::FetchOne(const ShelvedList& list) {
    ++m_running;
    QNetworkReply* reply = m_network.get(RequestFor(list));
    // Nobody needs to fill the memory.
    connect(reply, &QNetworkReply::downloadProgress, reply, [reply](qint64 received, qint64) {
        if (received > static_cast<qint64>(RuleCompiler::kMostListBytes)) reply->abort();
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply, list] { OnReply(*reply, list); });
}

void ListUpdates::OnReply(QNetworkReply& reply, const ShelvedList& list) {
    reply.deleteLater();
    if (TakeReply(reply, list)) ++m_newer;
    EndOne();
}

bool ListUpdates::TakeReply(QNetworkReply& reply, const ShelvedList& list) {
    const int answer = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool good = reply.error() == QNetworkReply::NoError && reply.url().scheme() == u"https";
    if (good && answer == kAnswerSame) {
        m_blocker.Shelf().NoteSame(list.Address, NowInSeconds());
        return false;
    }
    const QByteArray bytes = good && answer == kAnswerOk ? reply.readAll() : QByteArray();
    std::string_view text(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (!IsKnownToBeWhole(reply)) text = UncutLines(text);
    ShelvedList kept{list.Address,   HeaderOf(reply, "ETag"), HeaderOf(reply, "Last-Modified"),
                     NowInSeconds(), NowInSeconds(),          0};
    if (LooksLikeList(text) && m_blocker.Shelf().Keep(kept, text) == Outcome::Done) return true;
    Log::Note(LogLevel::Warning, LogPart::Engine, "a list has not come", answer);
    m_blocker.Shelf().NoteFailure(list.Address, NowInSeconds());
    ++m_failed;
    return false;
}

void ListUpdates::EndOne() {
    if (--m_running > 0) return;
    if (m_newer > 0) m_blocker.ReadLists();
    if (!m_told) return;
    Text words = m_newer == 0 ? Text(u"No list has changed.")
                              : Decimal(m_newer) + (m_newer == 1 ? u" list has changed." : u" lists have changed.");
    if (m_failed > 0) words += u" " + Decimal(m_failed) + u" did not come; the old one counts.";
    std::exchange(m_told, nullptr)(words);
}

} // namespace tessa::qt
