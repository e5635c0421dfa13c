#include "qt/QtSiteData.h"

#include <utility>

namespace {

constexpr int kPatience = 15000; // milliseconds, for tools that do not come or do not answer

const QString kGone = QStringLiteral("sites forgotten");
const QString kKept = QStringLiteral("sites kept");

// The answer comes back as the title of the tools' page.
constexpr auto kAsk = R"js((function () {
    const number = 987654321;
    const pass = DevToolsAPI.dispatchMessage;
    DevToolsAPI.dispatchMessage = function (message) {
        const answer = typeof message === 'string' ? JSON.parse(message) : message;
        if (answer.id !== number) return pass.call(DevToolsAPI, message);
        document.title = answer.error ? '%2' : '%1';
    };
    const kinds = 'local_storage,indexeddb,websql,file_systems,service_workers,cache_storage';
    const order = {id: number, method: 'Storage.clearDataForOrigin', params: {origin: '*', storageTypes: kinds}};
    DevToolsHost.sendMessageToEmbedder(
        JSON.stringify({id: 0, method: 'dispatchProtocolMessage', params: [JSON.stringify(order)]}));
})();)js";

} // namespace

QtSiteData::QtSiteData(QWebEngineProfile& profile) : m_blank(&profile), m_tools(&profile) {
    m_patience.setSingleShot(true);
    m_patience.callOnTimeout(this, [this] { End(Outcome::Failed); });
    connect(&m_tools, &QWebEnginePage::loadFinished, this, [this](bool there) {
        if (there) return Ask();
        End(Outcome::Failed);
    });
    connect(&m_tools, &QWebEnginePage::titleChanged, this, &QtSiteData::OnTitle);
}

void QtSiteData::Forget(std::function<void(Outcome)> done) {
    m_done = std::move(done);
    m_patience.start(kPatience);
    m_tools.setInspectedPage(&m_blank);
}

void QtSiteData::Ask() { m_tools.runJavaScript(QString::fromLatin1(kAsk).arg(kGone, kKept)); }

void QtSiteData::OnTitle(const QString& title) {
    if (title == kGone) End(Outcome::Done);
    if (title == kKept) End(Outcome::Failed);
}

void QtSiteData::End(Outcome outcome) {
    m_patience.stop();
    if (m_done) std::exchange(m_done, nullptr)(outcome);
}
