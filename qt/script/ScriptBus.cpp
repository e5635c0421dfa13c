#include "qt/script/ScriptBus.h"

#include "qt/base/PathBytes.h"
#include "script/BusNames.h"

#include <QDBusConnectionInterface>
#include <QElapsedTimer>
#include <algorithm>
#include <string_view>

namespace tessa::qt {

namespace {

// The window paints and answers its user in between.
constexpr std::chrono::milliseconds kLongestPause{20};

} // namespace

ScriptBus::ScriptBus(ScriptedWindow& window, Engine& engine, VisitStore& visits, const AcceptedCertificates& accepted)
    : m_reads(engine),
      m_waits(window),
      m_walk(window, m_reads, m_waits),
      m_addresses(engine, m_reads),
      m_output(m_reads, m_walk, m_addresses),
      m_checks(accepted),
      m_tabs(window, visits, m_reads, m_waits),
      m_pages({window, m_reads, m_waits, m_output, m_checks}),
      m_methods(m_tabs.All()) {
    for (ScriptMethod& each : m_pages.All()) m_methods.push_back(std::move(each));
}

void ScriptBus::Start(const QString& stateFolder, const QDBusConnection& bus) {
    if (!bus.isConnected()) return;
    ScriptCall::RegisterTypes();
    QDBusConnection own(bus);
    if (!own.registerVirtualObject(QString::fromLatin1(BusNames::kObject), this)) return;
    const QString name = QString::fromStdString(BusNames::NameFor(PathBytes(stateFolder)));
    // When the first instance ends, the next one is driven.
    own.interface()->registerService(name, QDBusConnectionInterface::QueueService,
                                     QDBusConnectionInterface::DontAllowReplacement);
}

QString ScriptBus::introspect(const QString&) const {
    QString xml = QStringLiteral("<interface name=\"%1\">\n").arg(QLatin1String(BusNames::kInterface));
    const auto list = [&xml](std::string_view types, const char* way) {
        for (std::size_t at = 0; at < types.size();) {
            std::size_t end = at + 1;
            if (types[at] == 'a') end = types[at + 1] == '(' ? types.find(')', at) + 1 : at + 2;
            xml += QStringLiteral("<arg type=\"%1\" direction=\"%2\"/>")
                       .arg(QString::fromStdString(std::string(types.substr(at, end - at))), QLatin1String(way));
            at = end;
        }
    };
    for (const ScriptMethod& each : m_methods) {
        xml += QStringLiteral("<method name=\"%1\">").arg(QLatin1String(each.name));
        list(each.takes, "in");
        list(each.gives, "out");
        xml += QStringLiteral("</method>\n");
    }
    return xml + QStringLiteral("</interface>\n");
}

bool ScriptBus::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.interface() != QLatin1String(BusNames::kInterface) && !message.interface().isEmpty()) return false;
    Calls& calls = CallsOf(message.service());
    if (calls.size() < kMostCalls) {
        calls.push_back({message, connection});
        WorkSoon();
    } else if (message.isReplyRequired()) {
        (void)connection.send(message.createErrorReply(QString::fromLatin1(BusNames::kTooMany),
                                                       QStringLiteral("Too many calls wait already.")));
    }
    return true;
}

ScriptBus::Calls& ScriptBus::CallsOf(const QString& caller) {
    const auto found = std::ranges::find_if(m_callers, [&caller](const auto& each) { return each.first == caller; });
    return found != m_callers.end() ? found->second : m_callers.emplace_back(caller, Calls()).second;
}

ScriptCall ScriptBus::TakeNext() {
    auto turn = std::move(m_callers.front());
    m_callers.pop_front();
    ScriptCall call = std::move(turn.second.front());
    turn.second.pop_front();
    if (!turn.second.empty()) m_callers.push_back(std::move(turn));
    return call;
}

void ScriptBus::WorkSoon() {
    if (!std::exchange(m_works, true)) QTimer::singleShot(m_pause, this, [this] { Work(); });
}

// A call may bring up a question, in whose event loop the next ones are answered.
void ScriptBus::Work() {
    m_works = false;
    if (m_callers.empty()) return;
    const ScriptCall call = TakeNext();
    if (!m_callers.empty()) WorkSoon();
    QElapsedTimer since;
    since.start();
    Run(call);
    m_pause = std::min(std::chrono::milliseconds(since.elapsed()), kLongestPause);
}

void ScriptBus::Run(const ScriptCall& call) {
    const auto found = std::ranges::find_if(
        m_methods, [&call](const ScriptMethod& each) { return call.message.member() == QLatin1String(each.name); });
    if (found == m_methods.end()) return call.Refuse(u"There is no such method.");
    if (call.message.signature() != QLatin1String(found->takes))
        return call.Refuse(u"The method takes other arguments.");
    found->run(call);
}

} // namespace tessa::qt
