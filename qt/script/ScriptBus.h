#pragma once
#include "qt/script/PageMethods.h"
#include "qt/script/TabMethods.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QTimer>
#include <chrono>
#include <deque>
#include <utility>
#include <vector>

namespace tessa {
class AcceptedCertificates;
} // namespace tessa

namespace tessa::qt {

/// The program's place on the session bus, where scripts drive it. Of several instances of one home the first has the
/// name. Calls wait for turns of the event loop, one a turn and of each caller one after the other: who never stops
/// holds up neither the window nor other callers. What is too much is refused.
class ScriptBus final : public QDBusVirtualObject {
public:
    /// How many calls of one caller wait at most, and how many of all for pages that load.
    static constexpr std::size_t kMostCalls = 500;

    /// All outlive it. `accepted` are the certificates that count although nobody vouches for them.
    ScriptBus(ScriptedWindow& window, Engine& engine, VisitStore& visits, const AcceptedCertificates& accepted);

    /// A caller whom the desktop has started wants the window in front, with the desktop's permission for it.
    [[nodiscard]] Signal<void(const QByteArray& token)>& Foreground() { return m_tabs.Foreground; }
    /// What is made of several tabs: for commands too.
    [[nodiscard]] GroupOutput& Output() { return m_output; }
    /// Gives up what has not been made by then. Before the engine ends.
    void Shutdown() { m_addresses.Shutdown(); }
    /// Takes the name that goes with the folder in which this instance keeps its state. Without a bus nothing happens.
    void Start(const QString& stateFolder, const QDBusConnection& bus = QDBusConnection::sessionBus());

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    using Calls = std::deque<ScriptCall>;

    [[nodiscard]] Calls& CallsOf(const QString& caller);
    [[nodiscard]] ScriptCall TakeNext();
    void Work();
    void WorkSoon();
    void Run(const ScriptCall& call);

    PageReads m_reads;
    LoadWaits m_waits;
    TabWalk m_walk;
    AddressWalk m_addresses;
    GroupOutput m_output;
    GroupChecks m_checks;
    TabMethods m_tabs;
    PageMethods m_pages;
    std::vector<ScriptMethod> m_methods;
    std::deque<std::pair<QString, Calls>> m_callers; ///< whose turn it is stands first; all have calls
    std::chrono::milliseconds m_pause{0};            ///< as long as the last call took
    bool m_works = false;
};

} // namespace tessa::qt
