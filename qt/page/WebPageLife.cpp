#include "qt/page/WebPageLife.h"

#include "qt/base/EngineVersions.h"
#include "qt/page/WebPage.h"

#include <QBuffer>
#include <QPixmap>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <algorithm>

#include <csignal>

namespace tessa::qt {

using State = QWebEnginePage::LifecycleState;

namespace {
constexpr int kPictureSize = 16;
} // namespace

WebPageLife::WebPageLife(WebPage& page) : m_page(page) {
    connect(&page, &QWebEnginePage::iconChanged, this, &WebPageLife::OnIcon);
    connect(&page, &QWebEnginePage::urlChanged, this, &WebPageLife::OnAddress);
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, [this] { m_ended = true; });
    connect(&page, &QWebEnginePage::loadStarted, this, [this] { m_ended = false; });
    connect(page.profile(), &QWebEngineProfile::downloadRequested, this, &WebPageLife::OnDownload);
}

// Small as it is, and drawn sharp on screens with twice the dots.
std::string WebPageLife::Picture() const {
    if (m_icon.isNull()) return {};
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    m_icon.pixmap(QSize(kPictureSize, kPictureSize), 2.0).save(&buffer, "PNG");
    return buffer.data().toStdString();
}

bool WebPageLife::Asleep() const { return m_page.lifecycleState() != State::Active; }

PageActivity WebPageLife::Activity() const {
    PageActivity activity{.Loading = m_page.isLoading(),
                          .Audible = m_page.recentlyAudible(),
                          .HoldsInput = m_page.HoldsInput(),
                          .Inspected = m_page.devToolsPage() != nullptr,
                          .Prints = m_page.Prints(),
                          .Visible = m_page.isVisible()};
    // One that was refused before it began has not finished in every engine's eyes.
    activity.Downloads = std::ranges::any_of(m_downloads, [](const auto& each) {
        return each && !each->isFinished() && each->state() != QWebEngineDownloadRequest::DownloadCancelled;
    });
    AddActivity(activity);
    return activity;
}

// Only when a page is halted does the engine think anew about what may become of it.
Outcome WebPageLife::Sleep() {
    if (m_ended || m_page.Prints()) return Outcome::Failed;
    m_page.setLifecycleState(State::Frozen);
    if (m_page.recommendedState() == State::Active) m_page.setLifecycleState(State::Active);
    if (m_page.recommendedState() == State::Discarded) {
        m_untold = true;
        m_page.setLifecycleState(State::Discarded);
    }
    return Asleep() ? Outcome::Done : Outcome::Failed;
}

void WebPageLife::Wake() { m_page.setLifecycleState(State::Active); }

std::int64_t WebPageLife::Process() const { return m_page.renderProcessPid(); }

bool WebPageLife::ProcessPrints() const {
    bool prints = m_page.Prints();
    OthersPrint(Process(), prints);
    return prints;
}

// The engine ends the program with a process that prints.
Outcome WebPageLife::EndProcess() {
    if (ProcessPrints()) return Outcome::Failed;
    const auto process = static_cast<pid_t>(Process());
    return process > 0 && ::kill(process, SIGKILL) == 0 ? Outcome::Done : Outcome::Failed;
}

void WebPageLife::OnIcon() {
    // Of a page of which it tells nothing more, it says with every load that there is none.
    if (m_untold && m_page.icon().isNull()) return;
    m_icon = m_page.icon();
    m_iconHost = m_page.url().host();
    IconChanged();
}

// For a page that has slept, or has got a history, the engine makes another of its own, and tells no more of icons.
// Those of pages shown before are in its store.
void WebPageLife::OnAddress(const QUrl& address) {
    m_ended = false;
    if (!m_untold || address.host() == m_iconHost) return;
    m_icon = QIcon();
    m_iconHost = address.host();
    m_page.profile()->requestIconForPageURL(
        address, 0,
        [self = QPointer<WebPageLife>(this), host = m_iconHost](const QIcon& icon, const QUrl&, const QUrl&) {
            if (!self || self->m_iconHost != host) return;
            self->m_icon = icon;
            self->IconChanged();
        });
}

void WebPageLife::OnDownload(QWebEngineDownloadRequest* request) {
    m_downloads.removeIf([](const auto& each) { return !each || each->isFinished(); });
    if (EngineVersions::PageOf(*request) == &m_page) m_downloads.append(request);
}

} // namespace tessa::qt
