#include "qt/engine/SiteData.h"

#include <QStringList>
#include <utility>

namespace tessa::qt {

namespace {

constexpr int kPatience = 15000; // milliseconds, for tools that do not come or do not answer

const QString kGone = QStringLiteral("sites forgotten");
const QString kKept = QStringLiteral("sites kept");

const QString kOrderSites =
    QStringLiteral("{method: 'Storage.clearDataForOrigin', params: {origin: '*', storageTypes: "
                   "'local_storage,indexeddb,websql,file_systems,service_workers,cache_storage'}}");
const QString kOrderCache = QStringLiteral("{method: 'Network.clearBrowserCache'}");

// The answer comes back as the title of the tools' page.
constexpr auto kAsk = R"js((function () {
    const orders = [%1], first = 987654321;
    let waiting = orders.length, failed = false;
    const pass = DevToolsAPI.dispatchMessage;
    DevToolsAPI.dispatchMessage = function (message) {
        const answer = typeof message === 'string' ? JSON.parse(message) : message;
        if (!(answer.id >= first)) return pass.call(DevToolsAPI, message);
        failed = failed || Boolean(answer.error);
        if (--waiting === 0) document.title = failed ? '%3' : '%2';
    };
    orders.forEach((order, index) => DevToolsHost.sendMessageToEmbedder(JSON.stringify(
        {id: 0, method: 'dispatchProtocolMessage', params: [JSON.stringify(Object.assign({id: first + index}, order))]})));
})();)js";

} // namespace

SiteData::SiteData(QWebEngineProfile& profile) : m_blank(&profile), m_tools(&profile) {
    m_patience.setSingleShot(true);
    m_patience.callOnTimeout(this, [this] { End(Outcome::Failed); });
    connect(&m_tools, &QWebEnginePage::loadFinished, this, [this](bool there) {
        if (there) return Ask();
        End(Outcome::Failed);
    });
    connect(&m_tools, &QWebEnginePage::titleChanged, this, &SiteData::OnTitle);
}

void SiteData::Forget(What what, std::function<void(Outcome)> done) {
    m_what = what;
    m_done = std::move(done);
    m_patience.start(kPatience);
    m_tools.setInspectedPage(&m_blank);
}

void SiteData::Ask() {
    QStringList orders;
    if (m_what.sites) orders << kOrderSites;
    if (m_what.cache) orders << kOrderCache;
    m_tools.runJavaScript(QString::fromLatin1(kAsk).arg(orders.join(u','), kGone, kKept));
}

void SiteData::OnTitle(const QString& title) {
    if (title == kGone) End(Outcome::Done);
    if (title == kKept) End(Outcome::Failed);
}

void SiteData::End(Outcome outcome) {
    m_patience.stop();
    if (m_done) std::exchange(m_done, nullptr)(outcome);
}

} // namespace tessa::qt
